// runtime/scroll_keys: the keys inside a scroll window: by line, by page, and choosing a line.
// At the first and the last row of the window the data move instead of the cursor. A screen file
// may put the cursor outside those rows: there too the line keys move it by one row.

#include "runtime/scroll_keys.h"

#include "runtime/painting.h"
#include "term/drawing.h"

#include <algorithm>

namespace scrim {

static void scroll_to(gadget_list& swin, int offset) {
  swin.swoff = offset;
  display_swin(&swin, -1);
}

// Rows above the window's first are not drawn. Row -1 would mean all rows to display_swin.
static void redraw_row(gadget_list& swin, int row) { display_swin(&swin, std::max(row, 0)); }

// Only a highlight that follows the cursor makes rows look different.
static void move_to_row(gadget_list& swin, int row) {
  const int left = swin.swiny;
  swin.swiny = row;
  if (swin.flags & GF_SWHIGH) {
    redraw_row(swin, left);
    redraw_row(swin, row);
  } else {
    sposition(swin.x + swin.swinx, swin.y + swin.swiny);
  }
}

void line_up(gadget_list& swin) {
  if (swin.swiny != 1) {
    move_to_row(swin, swin.swiny - 1);
  } else if (swin.swoff > 0) {
    scroll_to(swin, swin.swoff - 1);
  }
}

void line_down(gadget_list& swin) {
  if (swin.swiny != swin.h - 2) {
    move_to_row(swin, swin.swiny + 1);
  } else if (swin.swoff < swin.l - 1) {
    scroll_to(swin, swin.swoff + 1);
  }
}

static void page_to(gadget_list& swin, int offset) {
  offset = std::max(offset, 0);
  if (offset == swin.swoff) return;
  swin.swiny = swin.swinx = 1;
  scroll_to(swin, offset);
}

void page_up(gadget_list& swin) { page_to(swin, swin.swoff - std::max(swin.h - 2, 0)); }

void page_down(gadget_list& swin) {
  if (swin.swoff >= swin.l - 2) return;
  const int page = std::max(swin.h - 3, 0);
  page_to(swin, std::min(swin.swoff + page, swin.l - page));
}

void select_line(gadget_list& swin) {
  const int line = cursor_line(swin);
  swin.swhigh = swin.swhigh == line ? -1 : line;
  display_swin(&swin, -1);
  write_position(swin);
  swin.flags |= GF_MODIFIED;
}

}  // namespace scrim
