// term/leaving: the one close of the terminal, and the way out for everything that ends the program
// while it runs.
// Before the capabilities are loaded, closing only puts the line settings back.

#include "term/leaving.h"

#include "term/capabilities.h"
#include "term/drawing.h"
#include "term/tty.h"

#include <cstdlib>

namespace scrim {

void close_terminal() {
  if (!is_raw()) return;
  sposition(0, T_LINES - 1);
  restore_ttymode();
}

void win_exit(int ex) {
  close_terminal();
  exit(ex);
}

}  // namespace scrim
