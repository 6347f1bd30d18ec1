// Scroll windows: what they show, their keys, and their value.

#include "tests/terminal.h"

#include <gtest/gtest.h>

namespace scrim {

TEST(Scrolling, KeysMoveTheCursorTheRowsAndTheSelection) {
  const struct {
    std::string after, keys;
    int first;           // data line in the window's first row; 11: all are blank
    int cursor, marked;  // rows, 0: none
    std::string value = "", before = "", end = "";
  } cases[] = {{"", times(30, "<Down>"), 9, 4, 0},
               {"", "<Up><PgUp>" + times(5, "<Down>") + times(4, "<Up>"), 2, 1, 0},
               {"", "<Down><PgDn><PgDn><PgDn>", 7, 1, 0},
               {"", "<PgDn><PgDn><Down><PgUp>", 3, 1, 0},
               {"", "<PgDn><Down> ", 4, 2, 2, "5,3"},
               {"", "<PgDn><Down>  ", 4, 2, 0, "-1,3"},
               {"", "<PgDn>  <Down> " + times(3, "<Down>"), 5, 4, 1, "5,3"},
               {"swhigh:cursor", "", 1, 1, 1, "1,0"},
               {"swhigh:cursor", times(4, "<Down>") + "<Up>", 2, 3, 3, "4,1"},
               {"swhigh:cursor", "", 11, 1, 0, "-1,0", "swdefer\n"},
               {"swhigh:3", times(4, "<Down>"), 2, 4, 2},
               {"swhigh:cursor\nswpos:5,2", "", 3, 3, 3, "5,2", "swdefer\n"},
               {"swpos:5,2\nswhigh:cursor", "", 3, 3, 3, "5,2", "swdefer\n"},
               {"swhigh:cursor\nswpos:40000,0", "", 1, 22, 0, "40000,0"},  // below the terminal
               {"swpos:2,-4", " ", 1, 2, 2, "2,0"},
               {"swpos:9,1", "<Down><Up><Up>", 2, 7, 0},
               {"swpos:9,7", "", 8, 2, 0},  // nearer to the end
               {"swpos:9,7", "<Down>", 8, 3, 0, "", "", "\n"},
               {"swpos:99,98", "<Up>", 11, 1, 0},
               {"swhigh:cursor\nswpos:0,0", "<Up><Up><Up><Down><Down>", 1, -1, 0, "-1,0"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::PrintToString(std::tuple(c.before, c.after, c.keys)));
    Terminal t;
    t.file("data", "1\n2\n3\n4\n5\n6\n7\n8\n9\nlast" + c.end);
    t.form(c.before + "fulls:clear\nswin:2,1,20,6:data:V\n" + c.after + "\n");
    t.type(c.keys);
    t.expect_cursor(1 + c.cursor, 3);
    for (int row = 1, line = c.first; row <= 4; row++, line++) {
      const std::string shown = line < 10 ? std::to_string(line) : line == 10 ? "last" : "";
      t.expect_text(1 + row, 4, shown + std::string(16 - shown.size(), ' '));
      t.expect_reverse(1 + row, 4, row == c.marked ? 16 : 0);
    }
    t.type("<LF>");
    t.expect_exit(0, (c.value.empty() ? "" : "V=\"" + c.value + "\";export V;") + "RETN=default\n");
  }
}

TEST(Scrolling, DataEndAtTheFirstNulAndMayComeFromAPipe) {
  const struct {
    std::string file, first, third, value;
  } cases[] = {{"data", "a line t", "@x", "6,2"},
               {"dos", "a?b", "", "5,1"},
               {"pipe", "sent", "sent", "314,310"},
               {"/proc/self/comm", "scrim", "", "4,0"},
               {"empty", "", "", "4,0"},
               {"long", "1", "3", "303,299"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.file);
    Terminal t;
    t.file("empty", "");
    t.file("long", "1\n2\n3" + times(298, "\n") + "last");
    t.file("data", std::string_view("a line that is too long\n\n\tx\nlast\0no\nno\n", 39));
    t.file("dos", "a\rb\r\n\r\n");
    t.file("f", "swin:1,0,12,6:" + c.file + ":V\n");
    t.shell("mkfifo pipe; [ " + c.file +
            " = pipe ] && yes sent | head -n 60000 >pipe & exec scrim -f f");
    t.expect_row(0, " ┌──────────┐");
    t.expect_text(1, 3, c.first + " ");
    t.expect_text(3, 3, c.third + " ");
    t.type("<PgDn>" + times(310, "<Down>") + " <LF>");
    t.expect_exit(0, "V=\"" + c.value + "\";export V;RETN=default\n");
  }
}

}  // namespace scrim
