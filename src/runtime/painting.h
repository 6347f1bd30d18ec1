// runtime/painting: turns the records of a screen into cells of the terminal.
// Nothing else draws gadgets at rest; the form loop draws the active one over it.
#pragma once

#include "screens/model.h"

namespace scrim {

// Paints the window of the current screen: its frame, blank inside and title. Returns 0.
int screen_paint();

// Paints the current screen whole, every gadget in its resting look. The first time it also draws
// the frames and scroll-window rows that the screen's directives asked for. Returns 0.
int PaintScreen();

// Draws one gadget in its resting look. Returns 0.
int display_field(gadget_list* gadget);

// Draws row `line` (from 1) of a scroll window, or every row when it is -1, and leaves the cursor
// at the window's cursor. Returns 0.
int display_swin(gadget_list* swin, int line);

// Paints an attached text; nothing when there is none. Returns 0.
int do_atext(save_text* txt);

// The state of a checkbox as it shows: "_" is a blank.
const char* shown_state(const gadget_list& box);

}  // namespace scrim
