// The Debian package of what is built holds what it should and works where it is unpacked; an
// installation goes away again.

#include "tests/terminal.h"

#include <cstdlib>
#include <filesystem>

#include <gtest/gtest.h>

namespace scrim {

TEST(Package, WorksWhereItIsUnpacked) {
  Terminal t;
  const std::string root = t.path("root");
  const std::string pack = SCRIM_SOURCE "/scripts/package " + t.path(".") + " " SCRIM_BUILD;
  ASSERT_EQ(std::system((pack + " >/dev/null").c_str()), 0);
  const std::string unpack = "dpkg -x " + t.path(".") + "/scrim_*.deb " + root;
  ASSERT_EQ(std::system(unpack.c_str()), 0);

  for (const char* name :
       {"share/man/man1/scrim.1", "share/man/man1/scrim-check.1", "share/man/man1/scrim-drive.1",
        "share/man/man5/scrim-screen.5", "share/man/man7/scrim.sh.7", "share/scrim/scrim.sh",
        "share/bash-completion/completions/scrim", "share/bash-completion/completions/scrim-drive",
        "share/zsh/vendor-completions/_scrim", "share/fish/vendor_completions.d/scrim.fish",
        "share/fish/vendor_completions.d/scrim-check.fish", "share/vim/vimfiles/syntax/scrim.vim",
        "share/doc/scrim/examples/order/who.scrim", "bin/scrim", "bin/scrim-check",
        "bin/scrim-drive"})
    EXPECT_TRUE(std::filesystem::is_regular_file(root + "/usr/" + name)) << name;

  // An example needs its own screen files, the library beside the program, and the program.
  t.shell("PATH=" + root + "/usr/bin:/usr/bin:/bin; command -v scrim; exec " + root +
          "/usr/share/doc/scrim/examples/customer/customer.sh");
  t.type("Smith<Ctrl-X>");
  t.expect_exit(0, root + "/usr/bin/scrim\nNothing saved (cancel).\n");
}

TEST(Package, InstallationNamesItsPlaceAndGoesAwayAgain) {
  Terminal t;
  t.env("DESTDIR", t.path("stage"));
  t.env("INSTALL", "-D CMAKE_INSTALL_PREFIX=/opt/x -P " SCRIM_BUILD "/cmake_install.cmake");
  t.env("UNINSTALL", "-P " SCRIM_SOURCE "/cmake/uninstall.cmake");
  t.shell(
      "here=$PWD; mkdir -p stage/opt/x/bin; cd stage/opt/x;"
      "cmake -D lists=$here $INSTALL >$here/log; touch share/zsh/own; ls -d bin/scrim share/zsh/*;"
      "grep -ho '/opt/.*/scrim.sh' share/man/man7/* | uniq;"
      "cmake -D lists=$here $UNINSTALL >$here/log; echo $(find | sort)");
  t.expect_exit(0,
                "bin/scrim\nshare/zsh/own\nshare/zsh/site-functions\n/opt/x/share/scrim/scrim.sh\n"
                ". ./bin ./share ./share/zsh ./share/zsh/own\n");
}

}  // namespace scrim
