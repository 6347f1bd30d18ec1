// sketch/properties: what a line of the legend says of a gadget.
#pragma once

#include "tools/sketch/legend.h"

namespace scrim {

// Changes the gadget as the entry says; what can't be said of it is a mistake.
void apply_properties(source& from, gadget& it, const entry& about);

}  // namespace scrim
