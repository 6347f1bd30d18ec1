// screens/neighbours: the graph that the cursor keys follow from gadget to gadget.
// It is computed once, when a screen file has been read.
#pragma once

#include "screens/model.h"

namespace scrim {

// Fills in up, down, right and left of every navigable gadget of a screen. Left and right follow
// the reading order (by line, then by column); up and down lead to the nearest column of the
// nearest line above or below. Past the ends they wrap: up and left to the last gadget in reading
// order, down and right to the first. Of gadgets at one place the first declared stands for all.
// Time grows as n log n with the number of gadgets.
void link_neighbours(per_screen& screen);

}  // namespace scrim
