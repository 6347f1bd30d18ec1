// sketch/defaults: what neither picture nor legend says: actions, variables, the order of the
// gadgets, the active one. And what cannot stay as it was drawn.
#pragma once

#include "tools/sketch/sketch.h"
#include "tools/sketch/source.h"

#include <string>

namespace scrim {

// Completes a sketch, and notes what is wrong with it.
void complete(source& from, sketch& drawn);

// Whether the screen is painted again after something that is done on it: what is drawn only once,
// frames and scroll windows, is gone then.
bool comes_back(const sketch& drawn);

// A label as a variable: capital letters and digits, a "_" for what is between them; cut to what a
// name may have.
std::string variable_of(const std::string& label);

}  // namespace scrim
