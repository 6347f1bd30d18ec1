// sketch/legend_text: writes the legend of a sketch.
#pragma once

#include "tools/sketch/form_reader.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace scrim {

// A sketch that is being written: what it shall say, and what its picture says by itself.
struct draft {
  read_form wanted;
  sketch plain;                       // complete, without a legend, but for what is not drawn
  std::vector<std::size_t> in_plain;  // of each gadget: its number there
  std::vector<std::string> lines;     // the text
  int top = 0;                        // how many of them precede the picture
  std::map<int, std::size_t> about;   // lines of the legend, counted from 1, and their gadgets
};

// Whether a button's label marks a hot key.
bool has_hot_key(const gadget& it);

// Adds the legend to a draft that has its picture: all that the picture does not say by itself.
void write_legend(draft& made);

}  // namespace scrim
