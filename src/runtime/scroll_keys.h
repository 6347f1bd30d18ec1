// runtime/scroll_keys: the keys inside a scroll window: by line, by page, and choosing a line.
// The keys that leave the window are the form loop's.
#pragma once

#include "screens/model.h"

namespace scrim {

// Moves the cursor by a line; at the first and the last row of the window scrolls instead.
void line_up(gadget_list& swin);
void line_down(gadget_list& swin);

// Scrolls by a page, but not past the first line or the last page; the cursor goes to the first row
// when the rows have changed.
void page_up(gadget_list& swin);
void page_down(gadget_list& swin);

// Selects the cursor's line, or deselects it when it is selected, and makes it the window's value.
void select_line(gadget_list& swin);

}  // namespace scrim
