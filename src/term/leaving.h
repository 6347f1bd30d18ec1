// term/leaving: the one way out for everything that ends the program while it runs.
// Whoever ends the program otherwise would leave the terminal raw.
#pragma once

namespace scrim {

// Moves the cursor to the start of the last line, puts the user's line settings back (both only
// when the terminal was opened) and ends the program with status `ex`.
[[noreturn]] void win_exit(int ex);

}  // namespace scrim
