// Pick lists: the one-shot mode, and the fields of a form that open one.

#include "tests/terminal.h"

#include <algorithm>
#include <cstddef>

#include <gtest/gtest.h>

namespace scrim {

using words = std::vector<std::string>;

TEST(Lists, KeysAndMousePickAnEntry) {
  const std::pair<int, words> cases[] = {
      {0, {"<Enter>", " <Ctrl-D> <Ctrl-D><Enter>", " <Ctrl-U><Up><Enter>", "eA<Enter>"}},
      {0, {"l<Enter>", press(12, 7) + "<Enter>"}},
      {1, {"<Down><LF>", "d<Enter>", " <PgUp><Enter>", " <PgDn><Enter>"}},
      {1, {" " + release(12, 4) + " <Ctrl-U><Enter>"}},
      {2, {"De<Enter>", "ex<Enter>", release(12, 9) + release(12, 7)}},
      {-2, {" <Tab>"}},
      {-3, {" <Esc>", "<Ctrl-X>"}}};
  for (const auto& [result, all] : cases)
    for (const std::string& keys : all) {
      SCOPED_TRACE(keys);
      Terminal t;
      t.run({"-l", "10", "5", "Add", "Delete", "Exit", "last"});
      t.type(keys);
      t.expect_exit(0, "SCRIM=" + std::to_string(result) + "\n");
    }
}

TEST(Lists, LongerThanTheirRoomFollowTheSelection) {
  for (int framed : {0, 1}) {
    SCOPED_TRACE(framed);
    words line = framed ? words{"-b", "-l", "0", "9"} : words{"-l", "0", "9"};
    for (int i = 10; i < 40; i++) line.push_back(std::to_string(i) + std::string(40, '.'));
    Terminal t;
    t.run(line);
    t.expect_text(0, 0, framed ? "┌──" : "10.");
    t.expect_text(23, 0, framed ? "└──" : "   ");
    t.type(times(29, " ") + "<Up><Up>");
    t.expect_text(22, framed, "39.");
    t.expect_reverse(20, framed, 39);             // longer entries are cut
    t.type(release(1, 23) + release(1, framed));  // the first is too low
    t.expect_exit(0, framed ? "SCRIM=8\n" : "SCRIM=7\n");
  }
}

// Pop-up windows: the list scrolls inside, and its frame says where there is more.
TEST(Lists, StayInsideTheirWindowAndMarkWhatIsLeftOut) {
  const std::tuple<std::string, std::string, int, words> cases[] = {
      {"pop:12,5",
       "",
       8,
       {"", "┌─┌──┐─────┐", "│[│aa│]    │", "│ │Bb│     │", "│ │Ccv     │", "└─└──┘─────┘"}},
      {"pop:12,5", "D", 10, {"│[│Bb^]    │", "│ │Cc│     │", "│ │Ddv     │"}},
      {"pop:12,5", "E", 10, {"│[│Cc^]    │", "│ │Dd│     │", "│ │Ee│     │"}},
      {"pop:12,3", "B", 9, {"", "┌─┌──┐─────┐", "│[│Bbv]    │", "└─└──┘─────┘"}},
      {"pop:12,3", "E", 10, {"┌─┌──┐─────┐", "│[│Ee^]    │", "└─└──┘─────┘"}},
      {"pop:12,30", "E", 0, {"│[┌──┐]    │", "│ │aa│     │", "│ │Bb│     │"}},
      {"pop:12,9",
       "E",
       7,
       {"┌──────────┐", "│[┌──┐]    │", "│ │aa│     │", "│ │Bb│     │", "│ │Cc│     │"}},
  };
  for (const auto& [window, key, row, picture] : cases) {
    SCOPED_TRACE(window + " " + key);
    Terminal t;
    t.form(window + "\npoplist:2,1::P:aa:Bb:Cc:Dd:Ee\n");
    t.type("<F3>" + key);
    for (int i = 0; const std::string& shown : picture)
      t.expect_row(row + i++, shown.empty() ? "" : std::string(34, ' ') + shown);
  }
}

// An opening list blanks the first cell of the gadget that was highlighted, not of the one clicked.
TEST(Lists, AClickOpensTheListOfAnotherField) {
  Terminal t;
  t.form("fulls:clear\ndetext:5,1,4:abcd:E\npoplist:5,4:Red:P:Red:Green\npoplist:5,6::::\n");
  t.type(click(6, 4));
  t.expect_text(1, 4, "[ bcd]");
  t.expect_text(4, 4, "[┌─────┐");
  t.type("<Down><Enter>");
  t.expect_text(1, 4, "[abcd]");
  t.expect_text(4, 4, "[Green  ]");
  t.expect_text(6, 4, "[  ]");
  EXPECT_EQ(t.raw().find("\033[H\033[2J"), t.raw().rfind("\033[H\033[2J"));  // cleared once
}

// On a terminal whose attributes take cells, each entry is drawn with those around it.
TEST(Lists, ALetterThatLeadsNowhereRedrawsItsEntry) {
  Terminal t({.term = "scrim-cookie"});
  t.run({"-l", "10", "5", "Add", "Exit"});
  const std::size_t drawn = t.raw().size();
  t.type("1");
  EXPECT_EQ(t.raw().substr(drawn), "\033[6;10H\033[7mAdd \033[0m");
  t.type("x");
  EXPECT_TRUE(t.raw().substr(drawn).ends_with("\033[6;10H Add  \033[6;10H\033[7mAdd \033[0m"));
}

// In a full-screen window row 22 is the lowest for a frame.
TEST(Lists, OpenWithTheChosenEntryInView) {
  // The field's row, entries (10, 11, ...), the chosen one; row of the frame, first entry in view.
  const int cases[][5] = {{16, 4, 13, 16, 10}, {17, 4, 10, 17, 10}, {18, 4, 11, 17, 10},
                          {21, 4, 12, 17, 10}, {4, 30, 10, 0, 10},  {4, 30, 39, 0, 19}};
  for (const auto& [row, count, chosen, top, first] : cases) {
    SCOPED_TRACE(testing::PrintToString(std::tuple(row, count, chosen)));
    Terminal t;
    const std::string value = std::to_string(chosen);
    std::string form = "fulls:clear\npoplist:5," + std::to_string(row) + ":" + value + ":P";
    for (int i = 10; i < 10 + count; i++) form += ":" + std::to_string(i);
    t.form(form);
    t.type("<Right>");
    const int rows = std::min(count, 21);
    t.expect_text(top, 5, "┌──");
    t.expect_text(top + rows + 1, 5, "└──");
    for (int i = 0; i < rows; i++) {
      t.expect_text(top + 1 + i, 6, std::to_string(first + i));
      t.expect_reverse(top + 1 + i, 6, first + i == chosen ? 2 : 0);
    }
    t.type("<Enter><LF>");
    t.expect_exit(0, "P=\"" + value + "\";export P;RETN=default\n");
  }
}

TEST(Lists, FieldsTakeLettersOrOpenTheirListAboveTheWindowsEnd) {
  const std::pair<std::string, words> cases[] = {
      {"Green", {"g", ".W<Down><Enter>", "<Tab>" + click(26, 15) + release(27, 13)}},
      {"Blue", {"bbb", " 1", "<F3>b<Enter>", "g<Right> <Enter>"}},
      {"Red", {"qq" + press(9, 9), ".w <Esc>", ".xW<Tab>"}}};
  for (const auto& [value, all] : cases)
    for (const std::string& keys : all) {
      SCOPED_TRACE(keys);
      Terminal t;
      t.form("pop:40,10\npoplist:5,8::P:Red:Green:Blue:Black\netext:5,1,4::E\n");
      t.type(keys + "<LF>");
      t.expect_exit(0, "P=\"" + value + "\";export P;RETN=default\n");
    }
}

}  // namespace scrim
