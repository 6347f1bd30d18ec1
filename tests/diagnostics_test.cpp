// The capability dump.

#include "tests/terminal.h"

#include <gtest/gtest.h>

namespace scrim {

TEST(Diagnostics, DumpShowsTheCapabilitiesAndTheLineCharacters) {
  std::string keys;  // strings that are never loaded
  for (std::string name : {"KEYUP", "KEYDN", "KEYLT", "KEYRT", "KEYDL", "KEYBS", "KEYNP", "KEYPP",
                           "ALTON", "ALTOFF", "ALTINI"})
    keys += "T_" + name + " [nullpointer]\n";
  Terminal plain({.term = "scrim-plain"});
  plain.run({"-D"});
  plain.expect_exit(0, "Not Graphics capable\n" + keys +
                           "T_CLEAR 1b 5b 48 1b 5b 4a \nT_UP 1b 5b 41 \nT_DN 0a \nT_LT 08 \n"
                           "T_RT 1b 5b 43 \nT_HOME 1b 5b 48 \n"
                           "T_CUP 1b 5b 25 69 25 70 31 25 64 3b 25 70 32 25 64 48 \n"
                           "T_SGR0 1b 5b 6d \nT_STANDON 1b 5b 37 6d \nT_STANDOFF 1b 5b 6d \n"
                           "T_ULON 1b 5b 34 6d \nT_ULOFF 1b 5b 32 34 6d \n");
  Terminal xterm;
  xterm.shell("scrim -D; echo q >/dev/tty");
  xterm.expect_row(0, "┌┐└┘─│q");
  EXPECT_TRUE(xterm.expect_end(0).starts_with("Graphics capable  1b 28 30 \n\n" + keys));
}

}  // namespace scrim
