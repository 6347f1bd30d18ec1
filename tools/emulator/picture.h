// emulator/picture: an emulator's screen as text and as SVG. The same screen always gives the same
// bytes.
#pragma once

#include "tools/emulator/emulator.h"

#include <string>
#include <vector>

namespace scrim {

// The rows without trailing blanks, without the empty ones at the end.
std::string text_picture(const Emulator& emulator);

// All cells, with reverse video, underlines and the cursor.
std::string svg_picture(const Emulator& emulator);

// The parts of such a picture: the runs of cells, none of which covers another, and the cursor.
std::vector<std::string> svg_runs(const Emulator& emulator);
std::string svg_cursor(const Emulator& emulator);

// What was typed: a text (0 times), or a key by its name.
struct shown_key {
  std::string text;
  int times;
};

// The keys, for a strip below the screen.
std::string svg_keys(const Emulator& emulator, const std::vector<shown_key>& keys);

// The picture that consists of the parts, with or without that strip.
enum picture_shape { screen_alone, with_keys };
std::string svg_document(const Emulator& emulator, picture_shape shape, const std::string& parts);

}  // namespace scrim
