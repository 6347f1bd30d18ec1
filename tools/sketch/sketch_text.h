// sketch/sketch_text: writes a screen as a drawing with a legend.
#pragma once

#include "tools/sketch/form_reader.h"

#include <string>
#include <vector>

namespace scrim {

// The lines of a sketch of the screen. What cannot be drawn stands in its legend, as the screen
// file has it. Empty: there is no sketch of this screen.
std::vector<std::string> sketch_text(read_form form);

}  // namespace scrim
