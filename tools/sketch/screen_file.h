// sketch/screen_file: writes a sketch as a screen file.
#pragma once

#include "tools/sketch/sketch.h"

#include <string>

namespace scrim {

// The screen file; `origin` is the sketch's name for its first line, empty: there is no such line.
std::string screen_file(const sketch& drawn, const std::string& origin);

// The line that says where a screen file comes from begins so.
extern const char origin_mark[];

}  // namespace scrim
