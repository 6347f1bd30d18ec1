// The packages of what is built hold what they should and work from there; an installation goes
// away again.

#include "tests/terminal.h"

#include <cstdlib>
#include <set>
#include <sstream>

#include <gtest/gtest.h>

namespace scrim {

// The words that a shell command prints in the terminal's directory.
static std::set<std::string> printed(const Terminal& t, const std::string& command) {
  EXPECT_EQ(std::system(("cd " + t.path(".") + " && { " + command + "; } >printed").c_str()), 0);
  std::istringstream text(t.read("printed"));
  return {std::istream_iterator<std::string>(text), {}};
}

TEST(Package, HoldsItsOwnAndWorksWhereItIsUnpacked) {
  // What is in /usr/share, documents aside, and in /usr/bin; bash takes the braces apart.
  static const struct {
    std::string name, programs, others;
  } packages[] = {
      {"scrim", "scrim",
       "man/man{1/scrim.1,5/scrim-screen.5,7/scrim.sh.7}.gz scrim/scrim.sh "
       "vim/vimfiles/{ftdetect/scrim,syntax/scrim,syntax/scrimsketch}.vim"},
      {"scrim-tools", "scrim-check scrim-drive scrim-sketch",
       "man/man{1/scrim-{check,drive,sketch}.1,5/scrim-sketch.5}.gz"},
  };
  Terminal t;
  printed(t, SCRIM_SOURCE "/scripts/package " + t.path(".") + " " SCRIM_BUILD);
  for (const auto& [name, programs, others] : packages) {
    const std::string deb = name + "_*.deb ", rpm = name + "-[0-9]*.rpm ";
    const std::string files =
        "| sed -n 's|^-.*/usr/share/||p; s|^-.*/usr/bin/|../bin/|p' | grep -v ^doc/";
    const std::string wanted = "bash -c 'echo " + others + "; for p in " + programs +
                               "; do echo {../bin,bash-completion/completions}/$p"
                               " fish/vendor_completions.d/$p.fish zsh/$0/_$p; done' ";
    EXPECT_EQ(printed(t, "dpkg-deb --fsys-tarfile " + deb + "| tar tv" + files),
              printed(t, wanted + "vendor-completions"));
    EXPECT_EQ(printed(t, "rpm -qlvp " + rpm + files), printed(t, wanted + "site-functions"));

    const auto needed = printed(t, "dpkg-deb -f " + deb + "Depends; rpm -qRp " + rpm);
    for (const std::string need : {"libtinfo6", "libtinfo.so.6()(64bit)"})
      EXPECT_TRUE(needed.contains(need)) << need;
    for (const std::string need : {"scrim", "libvterm0", "libvterm.so.0()(64bit)"})
      EXPECT_EQ(needed.contains(need), name == "scrim-tools") << need;
  }

  // An example needs its own screen files, the library beside the program, and the program.
  const std::string usr = t.path("root/usr");
  printed(t, "dpkg -x scrim_*.deb root");
  const auto page = printed(t, "zcat root/usr/share/man/man7/scrim.sh.7.gz");
  EXPECT_TRUE(page.contains("/usr/share/scrim/scrim.sh"));
  t.shell("PATH=" + usr + "/bin:/usr/bin:/bin; command -v scrim; exec " + usr +
          "/share/doc/scrim/examples/customer/customer.sh");
  t.type("Smith<Ctrl-X>");
  t.expect_exit(0, usr + "/bin/scrim\nNothing saved (cancel).\n");
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
