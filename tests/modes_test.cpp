// The one-shot modes and the command line: what is drawn, what is written, and the statuses.

#include "tests/terminal.h"

#include <gtest/gtest.h>

namespace scrim {
namespace {

const char usage_text[] =
    " [-lbtepmf]\n"
    "  Version 2.4 \n"
    "  -l x y list   - do a piclist at x,y\n"
    "  -b x y w h    - draw a box at x,y\n"
    "  -t y w c t    - display a progress bar at y, width w\n"
    "                  progress at c/t (current/total)\n"
    "  -e msg        - display an error popup window\n"
    "  -p x y        - position cursor to x,y\n"
    "  -m x y msg    - display msg at x,y\n"
    "  -f screenfile - process a screenfile\n";

// What a run that never touches the terminal writes to it, without the line discipline's returns.
std::string complaint(Terminal& t) {
  std::string text = t.raw();
  std::erase(text, '\r');
  return text;
}

using words = std::vector<std::string>;

TEST(Modes, UsageForMixedModesAndMissingWords) {
  for (const std::string line :
       {"", "-T -r", "-l -e x", "-q", "-l 5 3", "-l a", "-b 1 2 3", "-p 10", "-p x y", "-e", "-t",
        "-t 1,2,3", "-t 10,0,1,4", "-m 1,1", "-m 1 text", "-l -b 1 1", "-m"}) {
    Terminal t;
    t.command({"/bin/sh", "-c", "exec scrim " + line});
    t.expect_exit(1, "");
    EXPECT_EQ(complaint(t), std::string("Usage: scrim") + usage_text) << line;
  }
}

TEST(Modes, FilesThatCannotBeOpenedEndBeforeTheTerminal) {
  struct {
    words line;
    const char* message;
    int status;
  } const cases[] = {
      {{"-W", "-l", "1", "1", "a"}, "Couldn't open: \n", 253},
      {{"-A/no/file", "-l", "1", "1", "a"}, "Couldn't open: /no/file\n", 253},
      {{"-I/no/defaults", "-p", "1", "1"}, "Couldn't open: /no/defaults\n", 253},
      {{"-f"}, "ERROR: Missing screen file names\n", 253},
      {{"-f", ",,"}, "ERROR: Missing screen file names\n", 253},
      {{"-f", "nofile"}, "scrim: Can't find screen file nofile\n", 1},
      {{"-f", "/tmp"}, "scrim: Can't find screen file /tmp\n", 1},
      {{"-f", "x\033]0;t\a\xc2\x9b\xc3\xa4"},
       "scrim: Can't find screen file x?]0;t?\xc2?\xc3\xa4\n",
       1},
      {{"-I\x9b[2J", "-D"}, "Couldn't open: ?[2J\n", 253},
  };
  for (const auto& c : cases) {
    Terminal t;
    t.run(c.line);
    t.expect_exit(c.status, "");
    EXPECT_EQ(complaint(t), c.message);
  }
}

TEST(Modes, BoxAndMessageDrawWhereAsked) {
  Terminal box;
  box.run({"-b", "2", "1", "6", "4"});
  box.expect_screen(1, "\n  ┌────┐\n  │    │\n  │    │\n  └────┘\n");
  box.expect_cursor(23, 0);
  box.expect_exit(0, "");

  Terminal message;
  message.run({"-m", "20,5", "a\tb\033[7mc"});
  message.expect_text(5, 20, "a@b?[7mc");
  message.expect_reverse(5, 27, 0);
  message.expect_exit(0, "");

  const std::string hundred(100, 'm');
  Terminal large;
  large.run({"-m", "0,5", hundred});
  large.expect_row(5, hundred.substr(0, 80));
  large.expect_row(6, hundred.substr(80));
  large.expect_exit(0, "");
}

// What is a control character to some terminal shows as "?"; a character of UTF-8 stays whole.
TEST(Modes, TextsCannotDriveTheTerminal) {
  const std::pair<std::string, std::string> cases[] = {
      {"\x1b[2J\x7f", "?[2J?"},
      {"\x9b[2J\x80\x9f\xa0\xff", "?[2J??\xa0\xff"},
      {"\xc2\xa0\xc2\x9f\xc3\x80\xdf\x90", "\xc2\xa0\xc2?\xc3\x80\xdf\x90"},
      {"\xc1\x90\xe2\x82\xac\xe0\x9f\xbf\xe2\x82", "\xc1?\xe2\x82\xac\xe0?\xbf\xe2?"},
      {"\xed\x9f\xbf\xed\xa0\x80\xe2\x28\x90", "\xed\x9f\xbf\xed\xa0?\xe2\x28?"},
      {"\xf0\x9f\x98\x80\xf0\x8f\xbf\xbf\xf4\x8f\x90\x80\xf4\x90\x80\x80\xf0\x9f\x98",
       "\xf0\x9f\x98\x80\xf0?\xbf\xbf\xf4\x8f\x90\x80\xf4???\xf0??"},
      {std::string(78, '.') + "\xe2\x82\xac", std::string(78, '.') + "\xe2\x82\xac"},
  };
  for (const auto& [text, shown] : cases) {
    Terminal t({.term = "scrim-plain"});
    t.run({"-m", "0,0", text});
    t.expect_exit(0, "");
    EXPECT_EQ(t.raw(), "\033[1;1H" + shown + "\033[24;1H");
  }
}

// Nothing is drawn left of the screen or above it.
TEST(Modes, FramesAndBarsAreCutAtTheUpperAndLeftEdge) {
  const std::tuple<words, const char*, int> cases[] = {
      {{"-b", " -2", "-1", "6", "4"}, "\n   |\n   |\n---+\n", 0},
      {{"-b", " -1", "0", "3", "3"}, "\n-+\n |\n-+\n", 0},
      {{"-b", " -1", "-2", "3", "3"}, "\n-+\n\n\n", 0},
      {{"-b", " -6", "0", "6", "3"}, "\n\n\n\n", 0},
      {{"-b", " -2000", "0", "2004", "1"}, "\n---+\n\n\n", 0},
      {{"-t", "1,100,1,2"},
       "\n\n\n             25                       50                       75"
       "                      100\n",
       40},
      {{"-t", "1,84,1,84"},
       "\n\n\n                 25                   50                   75                  100\n",
       0},
  };
  for (const auto& [line, picture, filled] : cases) {
    Terminal t({.columns = 132, .term = "scrim-plain"});
    t.run(line);
    t.expect_screen(0, picture);
    t.expect_reverse(1, 0, filled);
    t.expect_exit(0, "");
  }
}

TEST(Modes, PositionLeavesTheCursorThere) {
  Terminal t;
  t.run({"-p", "10", "5"});
  t.expect_cursor(5, 10);
  t.expect_exit(0, "");
  Terminal negative;
  negative.run({"-p", "99999999999", "-5"});
  negative.expect_cursor(0, 79);
  negative.expect_exit(0, "");
}

TEST(Modes, ProgressBarIsFilledInProportion) {
  struct {
    const char* word;
    int cells;
  } const cases[] = {
      {"10,40,1,4", 10}, {"10,40,4,4", 40}, {"10,40,0,4", 0},
      {"10,40,1,0", 0},  {"10,40,-1,4", 0}, {"10,40,2000000000,2100000000", 38},
  };
  for (const auto& c : cases) {
    Terminal t;
    t.run({"-t", c.word});
    t.expect_row(11, "                    0       25        50        75       100");
    t.expect_reverse(10, 20, c.cells);
    t.expect_exit(0, "");
  }
}

TEST(Modes, ErrorPopUpWaitsForOneKey) {
  Terminal t;
  t.run({"-e", "twenty characters it"});
  t.expect_screen(10,
                  "\n"
                  "          ┌──────────────────────────────────────────────────────────┐\n"
                  "          │                                                          │\n"
                  "          │                   twenty characters it                   │\n"
                  "          │                                                          │\n"
                  "          └──────────────────────────────────────────────────────────┘\n");
  t.expect_text(12, 30, "twenty");
  t.type("x");
  t.expect_exit(0, "");
}

// Only a mode that reads keys may switch the keypad.
TEST(Modes, KeypadIsSwitchedOnlyWhereKeysAreRead) {
  Terminal silent;
  silent.run({"-b", "1", "1", "9", "3"});
  silent.expect_exit(0, "");
  EXPECT_EQ(silent.raw().find("\033[?1h"), std::string::npos);
  Terminal reading;
  reading.run({"-e", "x"});
  reading.type("x");
  reading.expect_exit(0, "");
  EXPECT_LT(reading.raw().find("\033[?1h\033="), reading.raw().find("\033[?1l\033>"));
  EXPECT_NE(reading.raw().find("\033[?1l\033>"), std::string::npos);
}

// Two columns wide there is no room between the sides; a frame of one column is none.
TEST(Modes, FramesTakeTheTerminalsOwnCharacters) {
  struct {
    const char* term;
    words line;
    const char* picture;
  } const cases[] = {
      {"scrim-halfacs", {"-b", "1", "1", "4", "3"}, "\n +--+\n |  |\n +--+\n"},
      {"scrim-cookie", {"-b", "1", "1", "4", "3"}, "\n +--+\n |  |\n +--+\n"},
      {"scrim-ownacs", {"-b", "1", "1", "4", "3"}, "\n /==\\\n !  !\n \\==/\n"},
      {"scrim-gcaps", {"-T", "-b", "1", "1", "4", "3"}, "\n /==\\\n |  |\n \\==+\n"},
      {"scrim-plain", {"-b", "0", "1", "2", "2"}, "\n++\n++\n\n"},
      {"scrim-plain", {"-b", "0", "1", "1", "3"}, "\n\n\n\n"},
  };
  for (const auto& c : cases) {
    Terminal t({.term = c.term});
    t.run(c.line);
    t.expect_screen(1, c.picture);
    t.expect_exit(0, "");
  }
}

TEST(Modes, ReverseSwitchChoosesTheStandoutString) {
  for (const auto& [line, off] : {std::pair{words{"-t", "3,40,4,4"}, "\033[m\033"},
                                  std::pair{words{"-r", "-t", "3,40,4,4"}, "\033[27m\033"}}) {
    Terminal t({.term = "scrim-plain"});
    t.run(line);
    t.expect_exit(0, "");
    EXPECT_NE(t.raw().find(off), std::string::npos) << off;
  }
}

TEST(Modes, UnknownTerminalsAndNoTerminal) {
  struct {
    const char* term;
    words line;
    const char* message;
  } const cases[] = {
      {"no-such-terminal", {"-p", "1", "1"}, "scrim: I don't understand your terminal type\n"},
      {"", {"-p", "1", "1"}, "scrim: I don't understand your terminal type\n"},
      {"no-such-terminal",
       {"-T", "-p", "1", "1"},
       "scrim: I don't understand your terminal type no-such-terminal\n"},
      {"", {"-T", "-p", "1", "1"}, "scrim: I don't understand your terminal type \n"},
  };
  for (const auto& c : cases) {
    Terminal t({.term = c.term});
    t.run(c.line);
    t.expect_exit(6, "");
    const std::string said = complaint(t);
    EXPECT_TRUE(said.ends_with(c.message)) << said;
  }
  Terminal full;
  full.command({"sh", "-c", "exec 3>&-; ulimit -n 4; exec scrim -p 1 1"});
  full.expect_exit(6, "");
  EXPECT_TRUE(complaint(full).ends_with("scrim: too many open files to read its description\n"));
  Terminal none({.controlling = false});
  none.run({"-p", "1", "1"});
  none.expect_exit(5, "");
  EXPECT_EQ(complaint(none), "Can't init tty modes\n");
}

// A terminal that cannot place the cursor still shows every text.
TEST(Modes, DumbTerminalsDegrade) {
  for (const char* term : {"dumb", "scrim-blind"}) {
    Terminal t({.term = term});
    t.run({"-m", "20,5", "Hello"});
    t.expect_row(0, "Hello");
    t.expect_exit(0, "");
  }
}

}  // namespace
}  // namespace scrim
