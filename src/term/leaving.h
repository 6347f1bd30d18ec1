// term/leaving: the one close of the terminal, and the way out for everything that ends the program
// while it runs.
// This room stands below the keys, since a terminal that is gone ends the program from there.
#pragma once

namespace scrim {

// Moves the cursor to the start of the last line and puts the user's line settings back. Does
// nothing where the terminal is not in raw mode, so that it may run twice.
void close_terminal();

// Closes the terminal and ends the program with status `ex`.
[[noreturn]] void win_exit(int ex);

}  // namespace scrim
