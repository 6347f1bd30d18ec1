// scrim-check: each fault at its line, all in one run, and none in the examples.

#include "tests/terminal.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <tuple>

#include <gtest/gtest.h>

namespace scrim {

// A folder of tests/check is a case: its files are one form, in the order of their names, or the
// lists that its file `call` names; `expected` is what is said of them.
TEST(Check, EveryFaultIsSaidAtItsLine) {
  for (const auto& folder : std::filesystem::directory_iterator(SCRIM_SOURCE "/tests/check")) {
    SCOPED_TRACE(folder.path());
    Terminal t;
    t.directory(folder.path());
    t.command({"sh", "-c", "exec $0 $(cat call 2>/dev/null || ls *.scrim | paste -s -d , -)",
               SCRIM_CHECK_BINARY});
    t.expect_exit(1, t.read(folder.path() / "expected"));
  }
}

// Files of refused lines are closed.
TEST(Check, CallsAndLimits) {
  const std::string line = "bad:1: Invalid Command: x\n";
  const std::tuple<std::string, int, std::string> cases[] = {
      {"$0 good bad", 1, line + "bad:3: no screen of the list has the name 'x'\n"},
      {"$0 bad,none good", 2, line},
      {"$0 -q bad", 1, ""},
      {"$0 good ,", 2, ""},
      {"$0 -x good", 2, ""},
      {"yes swin:1,1,9,5:/ | head -n 1100 >>good; echo swin:1,9,9,5:bad >>good; ulimit -n 200; "
       "$0 good | grep -c open",
       0, "1100\n"}};
  for (const auto& [call, status, output] : cases) {
    SCOPED_TRACE(call);
    Terminal t;
    t.file("good", "fulls\n");
    t.file("bad", "x\nfulls\nbdefault:>x\n");
    t.command({"sh", "-c", call, SCRIM_CHECK_BINARY});
    t.expect_exit(status, output);
  }
}

TEST(Check, ExamplesAreClean) {
  Terminal t;
  t.directory(SCRIM_SOURCE "/examples");
  t.command({"sh", "-c", R"(export LOG_FILE=$0 FOUND=$0; cd orders
$0 ../customer/customer.scrim ../logview/logview.scrim entry.scrim find.scrim found.scrim \
  change.scrim && cd ../order && $0 who.scrim,goods.scrim,delivery.scrim,help.scrim &&
  cd ../tour &&
  $0 fields.scrim,choices.scrim,buttons.scrim,scroll.scrim,screens.scrim,popup.scrim,help.scrim)",
             SCRIM_CHECK_BINARY});
  t.expect_exit(0, "");
}

}  // namespace scrim
