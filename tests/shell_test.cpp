// The shell library in each shell that it is for, around the real program and what people type.

#include "tests/terminal.h"

#include <csignal>
#include <cstdlib>

#include <gtest/gtest.h>

namespace scrim {

class Shell : public testing::TestWithParam<const char*> {
 protected:
  // Runs a script that has read the library; its form asks for A and B.
  static void start(Terminal& t, const std::string& script) {
    t.file("form.scrim",
           "fulls:clear\nbdefault:ok\ndetext:3,3,70/79::A:CHAR\netext:3,5,30:${FILLED}:B:CHAR\n");
    t.file("script", ". " SCRIM_SOURCE "/share/scrim/scrim.sh\n" + script);
    t.shell(std::string("exec ") + GetParam() + " ./script");
  }
};

TEST_P(Shell, TakesEveryAnswerOfAStandIn) {
  const std::string line = std::string(GetParam()) + " " SCRIM_SOURCE "/tests/scrim_sh_test.sh";
  EXPECT_EQ(std::system(line.c_str()), 0);
}

// What is typed and what was there come back as they are; nothing of them is run or assigned
// elsewhere.
TEST_P(Shell, HostileValuesStayValues) {
  const std::string typed = R"($(touch x) "; touch x; ";export PATH;PATH="/evil";export PATH;C="c)";
  Terminal t;
  t.env("FILLED", "one\ntwo\";export PATH;\n");
  start(t, R"(search=$PATH C=other A=old
scrim_read A B -- -f form.scrim
printf '%s\n' "$?" "$RETN" "$C" "$A" "$B"
[ "$PATH" = "$search" ] && [ ! -e x ] && echo unharmed)");
  t.type_bytes(typed);
  t.type("<Tab>!<LF>");
  t.expect_exit(0, "0\nok\nother\n" + typed + "\none\ntwo\";export PATH;\n!\nunharmed\n");
}

// The program has no time to put the terminal back: the library does.
TEST_P(Shell, SettingsAreRestoredAfterAKill) {
  Terminal t;
  t.file("scrim-told", "#!/bin/sh\necho $$ >number\nexec scrim \"$@\"\n");
  start(t, R"(chmod +x scrim-told && _scrim_program=./scrim-told
scrim_read A B -- -f form.scrim
echo "$?")");
  t.expect_cursor(3, 3);
  const int number = std::atoi(t.read("number").c_str());
  ASSERT_GT(number, 1);
  ASSERT_EQ(kill(number, SIGKILL), 0);
  t.expect_exit(0, "137\n");
  EXPECT_TRUE(t.raw().ends_with("\033[?1l\033>")) << "the keypad still transmits";
}

// The calls are the lines of standard input, which no key may come from. A row: the call, a text
// that its screen shows, what is typed then, the status and A afterwards. Rows without a call are
// further screens of the call above.
static const char* const asked[][4] = {
    {"", "Without a call", "<Enter>", ""},
    {"scrim_ask Really?", "(Yes)    (No)", "<Enter>", "0 old"},
    {"scrim_ask \"$long\"", "a:b \"c\" 'd' \\e ${HOME} $HOME `id` _f #g <h (i", "n", "1 old"},
    {"scrim_ask Köln? 'Y:\\_${H}' '(Yü_s'", "(Y;/_$(H})     ((Y?_s)", "s", "1 old"},
    {"scrim_input A 'Your\tname?'", "Your    name?", "abc<Enter><Enter>", "0 abc"},
    {"scrim_input A Old \"$text\"", "[a;b \"c\" 'd' \\e ${HOME} $HOME", "+<LF>", "0 fitted+"},
    {"scrim_input A Older \"$long\"", "Older", "<Enter><Enter>", "0 long"},
    {"scrim_input A \"$long\" '\\p'", "[/p ", "<Enter><Enter>", "0 \\p"},
    {"scrim_input A Changed? x", "Changed?", "y<Esc>", "2 old"},
    {"scrim_password A Secret?", "Secret?", "\";A=\"s3cret<Enter><Enter>", "0 \";A=\"s3cret"},
    {"scrim_choose A Which? \"$long\" -b '' x", "│a:b \"c\" 'd' \\e ${HOME} $HOME `id` _f #g│",
     "<Enter>", "0 long"},
    {"scrim_choose A One -a -b '' x", "│-b│", "<Ctrl-D><Enter>", "0 -b"},
    {"scrim_choose A None -a -b ''", "│-b│", "<Ctrl-D><Ctrl-D><Enter>", "0 "},
    {"scrim_choose A \"Tab: $long\" x Z", "│Z│", "<Tab>", "2 old"},
    {"scrim_choose A Köln 1 2 3 4 5 6 7 8 9 a b c X e f g h i j k l m n o",
     "Köln                             │2│", "x<Enter>", "0 X"},
    {"scrim_tell \"$long\"", "xxxxx    ", " ", "0 old"},
    {"scrim_tell \"$pages\"", "│   (More)  ", "<Enter>", "0 old"},
    {"", "line 36", " ", ""},
    {"", "line 40", "<Enter>", ""},
    {"scrim_ask \"$pages\"", "line 18", "m", "2 old"},
    {"", "line 36", "<Esc>", ""},
    {"scrim_read A -- -f form.scrim; RETN=stale", "[FILL  ", "new<LF>", "0 new"},
    {"scrim_read A -- -f stdin <form.scrim; RETN=stale", "[FILL  ", "new<LF>", "0 new"},
    {"scrim_read -- -l -b 1 1 one two; A=$SCRIM SCRIM=7 RETN=stale", "│two│", "<Ctrl-D><Enter>",
     "0 1"},
    {"_scrim_program=./none; scrim_tell Lost", "none:", "", "3 old"},
};

TEST_P(Shell, AsksInsideALoopOverAFile) {
  std::string calls, results;
  for (const auto& [call, shown, keys, result] : asked)
    if (*call) calls += call + std::string("\n"), results += result + std::string("\n");
  Terminal t({.utf8 = true});
  t.env("LC_ALL", "C.UTF-8");
  t.env("FILLED", "FILL");
  t.file("calls", calls);
  start(t, R"sh(set -efu
text='a:b "c" '\''d'\'' \e ${HOME} $HOME `id` _f #g <h (i'
long="$text
endtext:	$(printf '%0500d' 0 | tr 0 x)"
pages=$(seq -f 'line %g' 40)
SCRIM=7 RETN=stale IFS=0123456789
scrim_tell 'Without a call'
while IFS= read -r call; do
  A=old status=0
  printf '\033[2J' >&2
  eval "$call" || status=$?
  case $A in
    "$long") A=long ;;
    'a;b "c" '\''d'\'' \e ${HOME} $HOME `id` _f #g <h (i+') A=fitted+ ;;
  esac
  printf '%s %s\n' "$status" "$A"
done <calls
echo "$SCRIM,$RETN,$IFS")sh");
  for (const auto& [call, shown, keys, result] : asked) {
    SCOPED_TRACE(*call ? call : shown);
    t.expect_shown(shown);
    t.type(keys);
  }
  t.expect_exit(0, results + "7,stale,0123456789\n");
  EXPECT_EQ(t.raw().find("s3cret"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(All, Shell, testing::Values("dash", "bash", "busybox sh", "ksh"));

TEST(Scripts, AreClean) {
  EXPECT_EQ(std::system("cd " SCRIM_SOURCE " && shellcheck -x -P share share/scrim/scrim.sh "
                        "examples/*/*.sh scripts/* fuzz/run tests/*.sh"),
            0);
}

}  // namespace scrim
