// runtime/form_loop: the form itself: one gadget is active, keys and clicks act on it, until the
// user leaves.
#pragma once

namespace scrim {

// Shows the current screen and lets the user fill in the form. Writes the values and the result
// line when it is left; a first screen without interactive gadgets is only painted. Returns 0.
int do_screen();

}  // namespace scrim
