// The one-shot modes and the command line: what is drawn, what is written, and the statuses.

#include "tests/terminal.h"

#include <cstddef>

#include <gtest/gtest.h>

namespace scrim {

static const char usage_text[] =
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
static std::string complaint(Terminal& t) {
  std::string text = t.raw();
  std::erase(text, '\r');
  return text;
}

TEST(Modes, UsageForMixedModesAndMissingWords) {
  std::vector<std::string> lines = {
      "",   "-T -r", "-q",       "-l 5 3",      "-l a",   "-b 1 2 3",  "-p 10",     "-p x y",
      "-e", "-t",    "-t 1,2,3", "-t 10,0,1,4", "-m 1,1", "-m 1 text", "-l -b 1 1", "-m"};
  const std::string modes[] = {"-l", "-b", "-e", "-p", "-D", "-t 9,9,1,4", "-m 1,1 x"};
  for (const std::string& one : modes)
    for (const std::string& other : modes)
      if (one < other && one + other != "-b-l") lines.push_back(one + " " + other + " 1 1 3 3");
  for (const std::string& line : lines) {
    SCOPED_TRACE(line);
    Terminal t;
    t.shell("exec scrim " + line);
    t.expect_exit(1, "");
    EXPECT_EQ(complaint(t), std::string("Usage: scrim") + usage_text);
  }
}

// Options act where they stand, behind the words of a mode too.
TEST(Modes, WhatCannotBeOpenedEndsTheProgramBeforeTheTerminalIsTouched) {
  const std::string unknown = "scrim: I don't understand your terminal type";
  const struct {
    std::string line, message;
    int status = 253;
    std::string term = "xterm";
    bool controlling = true;
    std::string before = "";
  } cases[] = {
      {"-W -l 1 1 a", "Couldn't open: "},
      {"-l -A/no/file 1 1 a", "Couldn't open: /no/file"},
      {"-m 1,1 text -U/no/file", "Couldn't open: /no/file"},
      {"-t 1,9,1,2 -I/no/defaults", "Couldn't open: /no/defaults"},
      {"-f", "ERROR: Missing screen file names"},
      {"-f ,,", "ERROR: Missing screen file names"},
      {"-f nofile", "scrim: Can't find screen file nofile", 1},
      {"-f /tmp", "scrim: Can't find screen file /tmp", 1},
      {"-f 'x\033]0;t\a\xc2\x9b\xc3\xa4'", "scrim: Can't find screen file x?]0;t?\xc2?\xc3\xa4", 1},
      {"'-I\x9b[2J' -D", "Couldn't open: ?[2J"},
      {"-p 1 1", unknown, 6, "no-such"},
      {"-p 1 1", unknown, 6, ""},
      {"-T -p 1 1", unknown + " no-such", 6, "no-such"},
      {"-T -p 1 1", unknown + " ", 6, ""},
      {"-T -p 1 1", unknown + " " + std::string(49, 'x'), 6, std::string(300, 'x')},
      {"-p 1 1", "Can't init tty modes", 5, "xterm", false},
      {"-p 1 1", unknown + "\nscrim: too many open files to read its description", 6, "scrim-plain",
       true, "exec 3>&-; ulimit -n 4;"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line + " on " + c.term);
    Terminal t({.term = c.term, .controlling = c.controlling});
    t.shell(c.before + " exec scrim " + c.line);
    t.expect_exit(c.status, "");
    EXPECT_EQ(complaint(t), c.message + "\n");
  }
}

// Two columns wide there is no room between a frame's sides; a frame of one column is none. What
// lies left of the screen or above it is not drawn. A terminal that cannot place the cursor still
// shows every text. Where no key is read, the keypad is left alone.
TEST(Modes, FramesAndTextsAreDrawnWhereAsked) {
  const std::string hundred(100, 'm'), plain = "\n +--+\n |  |\n +--+\n";
  const struct {
    const char* term;
    std::string line;
    int row;
    std::string picture;
    int cursor_row = 23, cursor_column = 0;
  } cases[] = {
      {"vt100", "-b 2 1 6 4", 1, "\n  ┌────┐\n  │    │\n  │    │\n  └────┘\n"},
      {"scrim-halfacs", "-b 1 1 4 3", 1, plain},
      {"scrim-cookie", "-b 1 1 4 3", 1, plain},
      {"scrim-ownacs", "-b 1 1 4 3", 1, "\n /==\\\n !  !\n \\==+\n"},
      {"scrim-gcaps", "-T -b 1 1 4 3", 1, "\n /==\\\n |  |\n \\==+\n"},
      {"scrim-plain", "-b 0 1 2 2", 1, "\n++\n++\n\n"},
      {"scrim-plain", "-b 0 1 1 3", 1, "\n\n\n\n"},
      {"scrim-plain", "-b ' -2' -1 6 4", 0, "\n   |\n   |\n---+\n"},
      {"scrim-plain", "-b ' -1' 0 3 3", 0, "\n-+\n |\n-+\n"},
      {"scrim-plain", "-b ' -1' -2 3 3", 0, "\n-+\n\n"},
      {"scrim-plain", "-b ' -6' 0 6 3", 0, "\n\n\n"},
      {"scrim-plain", "-b ' -2000' 0 2004 1", 0, "\n---+\n\n"},
      {"xterm", "-m 20,5 'a\tb\033[7mc'", 5, "\n                    a@b?[7mc\n"},
      {"xterm", "-m 0,5 " + hundred, 5, "\n" + hundred.substr(20) + "\n" + hundred.substr(80)},
      {"dumb", "-m 20,5 Hello", 0, "\nHello\n", 0, 5},
      {"scrim-blind", "-m 20,5 Hello", 0, "\nHello\n", 0, 5},
      {"xterm", "-p 10 5", 5, "", 5, 10},
      {"xterm", "-p 99999999999 -5", 0, "", 0, 79},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.term + (" " + c.line));
    Terminal t({.term = c.term});
    t.shell("exec scrim " + c.line);
    t.expect_screen(c.row, c.picture);
    t.expect_cursor(c.cursor_row, c.cursor_column);
    t.expect_exit(0, "");
    EXPECT_EQ(t.raw().find("\033[?1h"), std::string::npos);
    const bool switches = t.raw().find("\033[10m") < t.raw().find("\033[11m");
    EXPECT_EQ(switches, c.picture.find('/') != std::string::npos);  // to the characters with "/"
  }
}

// -r chooses another pair of standout strings. Nothing is drawn left of the screen.
TEST(Modes, ProgressBarIsFilledInProportion) {
  auto scale = [](std::size_t margin, std::size_t gap) {
    const std::string blanks(gap, ' ');
    return std::string(margin, ' ') + "25" + blanks + "50" + blanks + "75" + blanks.substr(1) +
           "100";
  };
  const std::string usual = std::string(20, ' ') + "0" + scale(7, 8);
  const std::tuple<std::string, int, int, std::string> cases[] = {
      {"10,40,1,4", 20, 10, usual},
      {"10,40,4,4 -r", 20, 40, usual},
      {"10,40,0,4", 20, 0, usual},
      {"10,40,1,0", 20, 0, usual},
      {"10,40,-1,4", 20, 0, usual},
      {"10,40,2000000000,2100000000", 20, 38, usual},
      {"10,100,1,2", 0, 40, scale(13, 23)},
      {"10,84,1,84", 0, 0, scale(17, 19)},
      {"10,1,1,1", 39, 1, std::string(37, ' ') + "100"},
  };
  for (const auto& [numbers, column, cells, labels] : cases) {
    SCOPED_TRACE(numbers);
    Terminal t({.columns = 132, .term = "scrim-plain"});
    t.shell("exec scrim -t " + numbers);
    t.expect_row(11, labels);
    t.expect_reverse(10, column, cells);
    t.expect_exit(0, "");
    const char* standout_off = numbers.ends_with("-r") ? "\033[27m" : "\033[m";
    EXPECT_NE(t.raw().find(standout_off), std::string::npos);
  }
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
    SCOPED_TRACE(shown);
    Terminal t({.term = "scrim-plain"});
    t.run({"-m", "0,0", text});
    t.expect_exit(0, "");
    EXPECT_EQ(t.raw(), "\033[1;1H" + shown + "\033[24;1H");
  }
}

TEST(Modes, ErrorPopUpWaitsForOneKey) {
  Terminal t;
  t.run({"-e", "twenty characters it"});
  t.expect_screen(10, R"(
          ┌──────────────────────────────────────────────────────────┐
          │                                                          │
          │                   twenty characters it                   │
          │                                                          │
          └──────────────────────────────────────────────────────────┘
)");
  t.type("x");
  t.expect_exit(0, "");
  EXPECT_LT(t.raw().find("\033[?1h\033="), t.raw().find("\033[?1l\033>"));
  EXPECT_NE(t.raw().find("\033[?1l\033>"), std::string::npos);
}

TEST(Modes, DumpShowsTheCapabilitiesAndTheLineCharacters) {
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
