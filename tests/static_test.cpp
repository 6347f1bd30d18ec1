// The static programs where there is nothing else: no libraries and no descriptions of terminals.

#include "tests/terminal.h"

#include <filesystem>

#include <gtest/gtest.h>

namespace scrim {

// Begins a line of the shell: `alone` runs scrim in a file system that holds the test's own
// directory and a terminal.
static std::string with_alone(const std::string& line) {
  return "cp " + program("scrim") + " . && mkdir dev && : >dev/tty || exit 99\n" +
         R"(alone() {
  unshare -rm sh -c 'mount --bind /dev/tty dev/tty && exec chroot . /scrim "$@"' alone "$@"
}
)" + line;
}

TEST(Alone, ProgramsAreSmallAndNeedNoLibrary) {
  for (const char* name : {"scrim", "scrim-check"}) {
    SCOPED_TRACE(name);
    EXPECT_LT(std::filesystem::file_size(program(name)), 1'000'000U);
    Terminal t;
    t.shell("ldd " + program(name) + " 2>&1");
    t.expect_exit(1, "\tnot a dynamic executable\n");
  }
}

TEST(Alone, ArchiveInstallsWhatWorks) {
  Terminal t;
  const std::string directory = std::filesystem::path(program("scrim")).parent_path();
  t.shell(
      "tar -xzf " + directory +
      "/scrim-*-linux-*.tar.gz && scrim-*/install.sh root && "
      "grep -c /root/share/scrim/scrim.sh root/share/man/man7/scrim.sh.7 && "
      "PATH=$PWD/root/bin:/usr/bin:/bin; scrim-check -q root/share/doc/scrim/examples/*/who.scrim;"
      "exec root/share/doc/scrim/examples/customer/customer.sh");
  t.type("Smith<Ctrl-X>");
  t.expect_exit(0, "scrim is in " + t.path("root/bin\n2\nNothing saved (cancel).\n"));
}

TEST(Alone, FormRunsWithoutDescriptions) {
  for (const char* term : {"xterm-256color", "screen", "linux", "vt100"}) {
    SCOPED_TRACE(term);
    Terminal t({.term = term});
    t.file("form", "fulls:clear\netext:3,2,20:${TERM}:A:CHAR\netext:3,3,20::B:CHAR\n");
    t.shell(with_alone("alone -f form"));
    t.expect_text(2, 3, term);
    t.type("<Down>b<Left>a<Ctrl-X>");
    t.expect_exit(0, "B=\"ab\";export B;RETN=cancel\n");
  }
}

TEST(Alone, DescriptionsAreThoseOfFiles) {
  Terminal t;
  t.shell(with_alone(R"(for option in '' -T; do
  for TERM in ansi konsole-256color linux rxvt screen-256color tmux vt220 xterm xterm-256color; do
    alone $option -D >built-in; scrim $option -D >from-file; cmp built-in from-file
  done
done)"));
  t.expect_exit(0, "");
}

TEST(Alone, DescriptionInAFileComesFirst) {
  Terminal t({.term = "vt100"});
  t.shell(
      "printf 'vt100|own,clear=own,cup=own,\n' | tic -o own - && TERMINFO=own scrim -D | "
      "grep T_CLEAR");
  t.expect_exit(0, "T_CLEAR 6f 77 6e \n");
}

TEST(Alone, UnknownTypeStaysUnknown) {
  Terminal t;
  t.shell(
      with_alone("TERM=no-such alone -p 1 1 2>said; echo $?; TERM= alone -T -D 2>>said; echo $?; "
                 "cat said"));
  t.expect_exit(0,
                "6\n6\n/scrim: I don't understand your terminal type\n"
                "/scrim: I don't understand your terminal type \n");
}

}  // namespace scrim
