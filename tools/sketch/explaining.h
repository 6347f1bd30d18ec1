// sketch/explaining: applies the legend to what was drawn.
#pragma once

#include "tools/sketch/legend.h"

namespace scrim {

// Changes what was drawn as the legend says.
void apply_legend(source& from, const legend& read, sketch& drawn);

}  // namespace scrim
