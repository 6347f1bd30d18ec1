// sketch/frames: a frame that is not closed is a mistake at the first cell where its side is
// missing.

#include "tools/sketch/frames.h"

#include "tools/sketch/source.h"

#include <string>

namespace scrim {

static bool continues_down(const picture& seen, int x, int y) {
  return at(seen, x, y + 1) == '|' || at(seen, x, y + 1) == '+';
}

static bool begins_frame(const picture& seen, int x, int y) {
  return at(seen, x, y) == '+' && at(seen, x + 1, y) == '-' && !is_taken(seen, x, y) &&
         (continues_down(seen, x, y) || at(seen, x + 2, y) == '-');
}

// The column of the corner that ends the upper edge: the first one below which the frame goes on,
// or else the first; 0: there is none.
static int right_corner(const picture& seen, int x, int y) {
  int first = 0;
  for (int right = x + 2; right < seen.w - 1; right++) {
    if (at(seen, right, y) != '+' || at(seen, right - 1, y) != '-') continue;
    if (continues_down(seen, right, y)) return right;
    if (first == 0) first = right;
  }
  return first;
}

static void report_open_side(source& from, const picture& seen, int x, int y) {
  report(from, place_of(seen, x, y),
         {cell(seen, x, y) == blank ? "a frame that is not closed: here its side should be"
                                    : "drawn over a frame, whose side should be here"});
}

// The rows from `y` down to the lower edge, both included; 0, with a mistake noted: there is none.
static int frame_height(source& from, const picture& seen, int x, int right, int y) {
  for (int row = y + 1; row < seen.h - 1; row++) {
    if (is_edge(seen, x, row, right - x + 1)) return row - y + 1;
    if (at(seen, x, row) == '|' && at(seen, right, row) == '|') continue;
    report_open_side(from, seen, at(seen, x, row) == '|' ? right : x, row);
    return 0;
  }
  report(from, place_of(seen, x, y), {"a frame that is not closed: it has no lower edge"});
  return 0;
}

// What is left of a frame that is not closed is no frame of its own.
static void take_lower_edge(picture& seen, int x, int y) {
  while (++y < seen.h - 1) {
    if (at(seen, x, y) != '+') continue;
    for (int end = x; end < seen.w - 1 && (at(seen, end, y) == '+' || at(seen, end, y) == '-');
         end++)
      take(seen, {end, y, 1});
    return;
  }
}

static void take_window(source& from, picture& seen, sketch& drawn, const extent& cells,
                        const std::string& name) {
  for (int y = cells.y + 1; y < cells.y + cells.h - 1; y++)
    if (!is_blank(row_text(seen, cells.x + 1, y, cells.w - 2)))
      report(from, place_of(seen, cells.x + 1, y), {"nothing can stand in a scroll window"});
  take(seen, cells);
  gadget window = {.what = kind::window, .cells = cells, .key = name};
  window.drawn = place_of(seen, cells.x, cells.y);
  window.file = name;
  drawn.gadgets.push_back(window);
}

static void take_box(picture& seen, sketch& drawn, const extent& cells) {
  take(seen, {cells.x, cells.y, cells.w, 1});
  take(seen, {cells.x, cells.y + cells.h - 1, cells.w, 1});
  take(seen, {cells.x, cells.y, 1, cells.h});
  take(seen, {cells.x + cells.w - 1, cells.y, 1, cells.h});
  drawn.boxes.push_back(cells);
}

static void take_frame(source& from, picture& seen, sketch& drawn, int x, int y) {
  const int right = right_corner(seen, x, y);
  if (right == 0) {
    report(from, place_of(seen, x, y), {"a frame that is not closed: its upper edge has no end"});
    return;
  }
  const int height = frame_height(from, seen, x, right, y);
  if (height == 0) return take_lower_edge(seen, x, y);
  const extent cells = {x, y, right - x + 1, height};
  const std::string name = trimmed(edge_text(seen, x + 1, y, cells.w - 2), "- ");
  if (name.empty()) {
    take_box(seen, drawn, cells);
  } else {
    take_window(from, seen, drawn, cells, name);
  }
}

void take_frames(source& from, picture& seen, sketch& drawn) {
  for (int y = 1; y < seen.h - 1; y++)
    for (int x = 1; x < seen.w - 1; x++)
      if (begins_frame(seen, x, y)) take_frame(from, seen, drawn, x, y);
}

}  // namespace scrim
