// emulator/picture: an emulator's screen as text and as SVG. The same screen always gives the same
// bytes.
#pragma once

#include "tools/emulator/emulator.h"

#include <string>

namespace scrim {

// The rows without trailing blanks, without the empty ones at the end.
std::string text_picture(const Emulator& emulator);

// All cells, with reverse video, underlines and the cursor.
std::string svg_picture(const Emulator& emulator);

}  // namespace scrim
