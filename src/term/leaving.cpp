// term/leaving: the one way out for everything that ends the program while it runs.
// It needs no capabilities: before they are loaded it only puts the line settings back.

#include "term/leaving.h"

#include "term/capabilities.h"
#include "term/drawing.h"
#include "term/tty.h"

#include <cstdlib>

namespace scrim {

void win_exit(int ex) {
  if (tfd != -1) {
    sposition(0, T_LINES - 1);
    restore_ttymode();
  }
  exit(ex);
}

}  // namespace scrim
