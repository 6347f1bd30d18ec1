// drive/film: the screens of a run as one animated SVG, which plays by itself and loads nothing.
// Its times are those of the key script, so that the same screens always give the same bytes.
#pragma once

#include "tools/drive/key_script.h"
#include "tools/emulator/emulator.h"
#include "tools/emulator/picture.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace scrim {

struct film_frame {
  std::vector<std::string> cells;  // the parts of the picture, none of which covers another
  std::vector<std::string> above;  // and those that are drawn over them
  int time;                        // ms
};

struct screen_film {
  std::vector<film_frame> frames;
  std::vector<shown_key> keys;       // that the next frame shows
  std::optional<std::size_t> still;  // the frame that stands for all; none: the last one
};

// The step that stands for the time before the first key.
extern const key_step opening;

// Adds the screen as it is after the step.
void add_frame(screen_film& film, const Emulator& emulator, const key_step& step);

// The film, which begins again at its end; there is at least one frame.
std::string svg_film(const screen_film& film, const Emulator& emulator);

}  // namespace scrim
