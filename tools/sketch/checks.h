// sketch/checks: what a sketch that is complete cannot be made of.
#pragma once

#include "tools/sketch/sketch.h"
#include "tools/sketch/source.h"

namespace scrim {

// Notes the mistakes, and gives each list the width that it will have.
void check_sketch(source& from, sketch& drawn);

// Whether nothing but being the first gadget of the screen file makes this one active at first.
bool needs_first_place(const gadget& it);

// Whether a gadget's own lines make it active at first.
bool is_marked(const gadget& it);

}  // namespace scrim
