// sketch/painter: paints the picture of a sketch.
#pragma once

#include "tools/sketch/form_reader.h"

#include <string>
#include <vector>

namespace scrim {

// Cells by rows, each with the bytes of its character.
using grid = std::vector<std::vector<std::string>>;

// Paints all that is not verbatim; what finds no place becomes so.
grid paint(read_form& form);

// Whether the title can stand in the frame's edge; else the legend has it.
bool is_edge_title(const sketch& drawn);

// A line of an attached text as the legend has it.
std::string attached_line(std::string line);

}  // namespace scrim
