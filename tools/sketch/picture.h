// sketch/picture: the picture of a sketch as cells, and the window's frame around it.
#pragma once

#include "tools/sketch/sketch.h"
#include "tools/sketch/source.h"

#include <string>
#include <string_view>
#include <vector>

namespace scrim {

// The window's frame and what is in it. Columns and rows count from 0 at the frame's corner.
struct picture {
  int top = 0, left = 0;  // the frame's corner: index of the line, column from 0
  int w = 0, h = 0;
  std::vector<std::vector<std::string>> cells;  // by rows
  std::vector<std::vector<bool>> taken;         // cells of frames and gadgets
  std::vector<extent> undrawn;                  // frames that only the legend tells of
};

// Finds the window's frame, and takes title, size and comments from it. Returns false, with a
// mistake noted, when there is no complete one.
bool find_frame(source& from, picture& seen, sketch& drawn);

// What stands in a cell: a character of ASCII, "+", "-" or "|" for one that draws lines,
// `not_ascii` for any other character. Outside of the picture there are blanks.
constexpr char not_ascii = '\x7f';
char at(const picture& seen, int x, int y);

// The bytes of a cell's character.
const std::string& cell(const picture& seen, int x, int y);

// Where a cell is in the text of the sketch.
place place_of(const picture& seen, int x, int y);

// Cells that belong to a frame or a gadget. A cell is taken once: what stands on it later is no
// text, and no other gadget.
void take(picture& seen, const extent& cells);
bool is_taken(const picture& seen, int x, int y);

// Whether a text is in the cell.
bool is_text(const picture& seen, int x, int y);

// The cells of a row from column `x` on, `n` of them. In the upper edge of a frame "-" stands for
// what draws the edge.
std::string row_text(const picture& seen, int x, int y, int n);
std::string edge_text(const picture& seen, int x, int y, int n);

// Whether the row's cells from `x` on, `n` of them, are a frame's plain edge.
bool is_edge(const picture& seen, int x, int y, int n);

// A text without these characters at both ends.
std::string trimmed(const std::string& text, const char* what = " ");
bool is_blank(const std::string& line);

// Whether there are characters outside of ASCII in a text.
bool has_other(std::string_view text);

inline const std::string blank = " ";

}  // namespace scrim
