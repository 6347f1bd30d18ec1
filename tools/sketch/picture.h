// sketch/picture: reads the picture of a sketch: window, frames, gadgets and texts.
#pragma once

#include "tools/sketch/sketch.h"
#include "tools/sketch/source.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace scrim {

// The window's frame and what is in it.
struct picture {
  int top = 0, left = 0;  // the frame's corner: index of the line, column from 0
  int w = 0, h = 0;
  std::vector<std::vector<std::string>> cells;  // by rows
  std::vector<std::vector<bool>> taken;         // cells of frames and gadgets
};

// Finds the window's frame, and takes title, size and comments from it. Returns false, with a
// mistake noted, when there is no complete one.
bool find_frame(source& from, picture& seen, sketch& drawn);

// Takes what the frame encloses. `is_button` tells whether a text in brackets that has no hot key
// is the label of a button.
void read_picture(source& from, picture& seen, sketch& drawn,
                  const std::function<bool(std::string_view)>& is_button);

}  // namespace scrim
