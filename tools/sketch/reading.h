// sketch/reading: reads a sketch whole.
#pragma once

#include "tools/sketch/picture.h"
#include "tools/sketch/sketch.h"
#include "tools/sketch/source.h"

#include <functional>
#include <string_view>

namespace scrim {

// Takes what the window's frame encloses. `is_button` tells whether a text in brackets that has no
// hot key is the label of a button.
void read_inside(source& from, picture& seen, sketch& drawn,
                 const std::function<bool(std::string_view)>& is_button);

// The screen that a sketch draws, complete; mistakes are noted in `from`.
sketch read_sketch(source& from);

}  // namespace scrim
