// sketch/reading: reads a sketch whole.
#pragma once

#include "tools/sketch/sketch.h"
#include "tools/sketch/source.h"

namespace scrim {

// The screen that a sketch draws, complete; mistakes are noted in `from`.
sketch read_sketch(source& from);

}  // namespace scrim
