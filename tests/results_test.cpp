// Results: what a form leaves on standard output and in the files of -A, -W and -U.

#include "tests/terminal.h"

#include <gtest/gtest.h>

namespace scrim {

// A value is written as it is, whatever a terminal would make of it.
TEST(Results, ValuesGoToOnePlaceInTheFormThatItAsksFor) {
  const char form[] =
      "etext:2,2,20:John:NAME:VARCHAR2\netext:2,3,20:4:AGE:NUMBER\netext:2,4,20:*:DUE:DATE\n"
      "etext:2,5,20:1/9:BORN:DATE\netext:2,6,20:it\x9b's:NOTE\n";
  const std::string all = "\"<Ctrl-D>2<Ctrl-D>*<Ctrl-D>9<Ctrl-D>?<LF>", leave = "RETN=default\n";
  const std::string born = "to_date('1/99','MM/DD/YYYY HH24 MI SS')\n", old = "old|old|old";
  const std::string added = "NAME 'John'\nAGE 4\nDUE NULL\nBORN " + born + "|old|old";
  // Options, keys, standard output, and the files of -A, -W and -U.
  const std::string cases[][4] = {
      {"", "<Esc>", "RETN=cancel\n", old},
      {">/dev/tty", "<Esc>", "", old},
      {"", all,
       "NAME=\"John\"\";export NAME;AGE=\"42\";export AGE;DUE=\"**\";export DUE;"
       "BORN=\"1/99\";export BORN;NOTE=\"it\x9b's?\";export NOTE;RETN=default\n",
       old},
      {"-Aadd", "<Ctrl-D><Ctrl-D><Ctrl-D>9<LF>", leave, added},
      {"-Aadd >&-", "<Ctrl-D><Ctrl-D><Ctrl-D>9<LF>", "", added},
      {"-Wwhere -Uupdate -Aadd", all, leave,
       "NAME 'John\"'\nAGE 42\nDUE NULL\nBORN " + born + "NOTE it\x9b's?\n||"},
      {"-Uupdate -Wwhere", all, leave,
       "old|NAME like 'John\"'\nAGE = 42\nDUE IS NULL\nBORN like " + born + "NOTE = it\x9b's?\n|"},
      {"-Uupdate", all, leave,
       "old|old|NAME = 'John\"'\nAGE = 42\nDUE = NULL\nBORN = " + born + "NOTE = it\x9b's?\n"},
  };
  for (const auto& [options, keys, output, files] : cases) {
    Terminal t;
    t.file("s", form);
    for (const char* name : {"add", "where", "update"}) t.file(name, "old");
    SCOPED_TRACE(options);
    t.shell("exec scrim -f s " + options);
    t.type(keys);
    t.expect_exit(0, output);
    // On the terminal results stand once it is the user's again.
    EXPECT_EQ(t.raw().ends_with("\033>RETN=cancel\r\n"), options == ">/dev/tty");
    EXPECT_EQ(t.read("add") + "|" + t.read("where") + "|" + t.read("update"), files);
  }
}

}  // namespace scrim
