// The Debian package of what is built, unpacked: it holds what it should, and works from there.

#include <cstdlib>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "tests/terminal.h"

namespace scrim {
namespace {

TEST(Package, WorksWhereItIsUnpacked) {
  Terminal t;
  const std::string root = t.path("root");
  const std::string pack = SCRIM_SOURCE "/scripts/package " + t.path(".") + " " SCRIM_BUILD;
  ASSERT_EQ(std::system((pack + " >/dev/null").c_str()), 0);
  const std::string unpack = "dpkg -x " + t.path(".") + "/scrim_*.deb " + root;
  ASSERT_EQ(std::system(unpack.c_str()), 0);

  for (const char* name :
       {"man/man1/scrim.1", "man/man1/scrim-check.1", "man/man1/scrim-drive.1",
        "man/man5/scrim-screen.5", "man/man7/scrim.sh.7", "bash-completion/completions/scrim",
        "bash-completion/completions/scrim-drive", "fish/vendor_completions.d/scrim-check.fish",
        "zsh/vendor-completions/_scrim", "fish/vendor_completions.d/scrim.fish",
        "vim/vimfiles/syntax/scrim.vim", "scrim/scrim.sh", "doc/scrim/examples/order/who.scrim"})
    EXPECT_TRUE(std::filesystem::is_regular_file(root + "/usr/share/" + name)) << name;

  for (const char* name : {"scrim", "scrim-check", "scrim-drive"})
    EXPECT_TRUE(std::filesystem::is_regular_file(root + "/usr/bin/" + name)) << name;

  // An example needs its own screen files, the library beside the program, and the program.
  t.command({"sh", "-c",
             "PATH=" + root + "/usr/bin:/usr/bin:/bin; command -v scrim; exec " + root +
                 "/usr/share/doc/scrim/examples/customer/customer.sh"});
  t.type("Smith\030");
  t.expect_exit(0, root + "/usr/bin/scrim\nNothing saved (cancel).\n");
}

}  // namespace
}  // namespace scrim
