// runtime/switching: the screen stack, and the two ways to another screen. A screen is found by
// its name; one that is not found ends the program with a message and status 3.
#pragma once

namespace scrim {

// Puts the screen whose name follows the first character of `s` (">" or "<") in the place of the
// current one and paints it. Returns 0.
int DoGoToScreen(const char* s);

// Pops the screen whose name follows the "^" up over the current one, or with "^" alone returns to
// the screen below, and paints it. Nothing below ends the program likewise; on a full stack a
// message is shown, and the current screen stays. Returns 0.
int DoSubScreen(const char* s);

}  // namespace scrim
