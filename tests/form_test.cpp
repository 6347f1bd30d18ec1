// Forms: what a screen looks like, where the keys and the mouse lead, and how a form is left.

#include "tests/terminal.h"

#include <gtest/gtest.h>

namespace scrim {

static const char customer[] =
    "fulls:overlay\ntext:\nName\nPin\nendtext:\nbox:2,4,30,3\ndetext:10,2,6:Johnson:NAME\n"
    "etext:10,3,6:\\\\p:PIN\netext:10,10,6\n"
    "pbutton:4,5:_Ok:ok\npbutton:12,5:<E_xit:quit\npbutton:21,5: Help:help\n";

TEST(Form, GadgetsAreMarkedOnEveryKindOfTerminal) {
  for (const bool cookie : {false, true}) {
    SCOPED_TRACE(cookie);
    Terminal t({.term = cookie ? "scrim-cookie" : "scrim-plain"});
    t.form(customer);
    t.type("<Tab>123<Ctrl-U><Ctrl-U>");
    t.expect_screen(2, R"(
    Name [Johnso]
    Pin  [***   ]
  +----------------------------+
  | (Ok)    <Exit>   Help      |
)");
    t.type("<Tab><Tab><Tab>");
    t.expect_reverse(5, cookie ? 3 : 4, 4);
    t.type("<Tab><Ctrl-U>");  // a button that was active looks as before
    t.expect_row(5, "  | (Ok)    <Exit>   Help      |");
    for (int column : {4, 5, 6, 14})  // of the active button and of another one
      EXPECT_EQ(t.emulator.cell(5, column).underline, !cookie && column != 4 && column != 6);
  }
}

TEST(Form, WindowsCoverWhatTheirKindSays) {
  const std::tuple<const char*, int, int, const char*> cases[] = {
      {"fulls", 0, 38, "-T-"},           {"fulls:Clear", 22, 76, "--+0"},
      {"fulls:clear", 22, 76, "--+ "},   {"fulls:overlap", 21, 76, "  00"},
      {"pop:8,4", 10, 35, "0+---T--+0"}, {"pop:8,4", 11, 35, "0|      |0"},
      {"pop:41,11", 6, 18, "0+--"},      {"pop:8,4:clear", 13, 35, " +------+ "},
      {"pop:3,3", 11, 37, "0| |0"},
  };
  for (const auto& [window, row, column, text] : cases) {
    SCOPED_TRACE(window);
    Terminal t({.term = "scrim-plain"});
    t.file("s", window + std::string("\ntitle:T\n"));
    t.shell("printf %01840d 0 >&2; exec scrim -f s");
    t.expect_text(row, column, text);
    t.expect_exit(0, "");  // without gadgets there is nothing to wait for
  }
}

TEST(Form, KeysFollowTheNeighbours) {
  const std::pair<const char*, int> walk[] = {
      {"", 0},        {"<Left>", 0},   {"<Up>", 3},    {"<Left>", 4},   {"<Left>", 2},
      {"<Down>", 3},  {"<Down>", 0},   {"<Tab>", 1},   {"<Ctrl-U>", 3}, {"<Up>", 2},
      {"<Tab>", 4},   {"<Up>", 2},     {"<Up>", 3},    {"<Right>", 0},  {"<Tab>", 1},
      {"<Down>", 4},  {"<Ctrl-R>", 3}, {"<Tab>", 0},   {"<Ctrl-D>", 4}, {"<Ctrl-L>", 2},
      {"<Enter>", 1}, {"<Enter>", 0},  {"<Enter>", 4}, {"<BS>", 2}};
  const int places[][3] = {{2, 2, 9}, {2, 30, 9}, {2, 55, 9}, {21, 60, 4}, {21, 46, 4}};
  Terminal t;
  t.form("etext:2,2,9\netext:30,2,9\netext:55,2,9\npbutton:60,21:Ok\npbutton:46,21:No\n");
  for (const auto& [key, gadget] : walk) {
    SCOPED_TRACE(key + (" to " + std::to_string(gadget)));
    t.type(key);
    t.expect_cursor(places[gadget][0], places[gadget][1] - (gadget > 2));
    for (const auto& [row, column, width] : places)
      t.expect_reverse(row, column, column == places[gadget][1] ? width : 0);
  }
}

// Runs the form, types the keys, and returns once it has ended as expected.
static void leave(const std::string& content, const std::string& keys, const std::string& output,
                  const char* term = "xterm", const char* library = "-") {
  SCOPED_TRACE(keys + " on " + term + " " + library);
  Terminal t({.term = term});
  t.file("s", content);
  t.run({library, "-f", "s"});
  t.type(keys);
  t.expect_exit(0, output);
}

TEST(Form, RunsAndIsLeftOnEveryTerminal) {
  for (const char* term : {"tmux-256color", "vt100", "linux", "ansi", "dumb", "scrim-blind"})
    for (const char* library : {"-", "-T"})
      leave(customer, "<Tab><Tab>x!o", "RETN=quit\n", term, library);
}

TEST(Form, IsLeftByItsActions) {
  const std::string form =
      "etext:2,2,9::V\npbutton:2,4:_Go:go\npbutton:9,4:i_t:it\npbutton:19,4:_9\n";
  const std::pair<const char*, std::string> cases[] = {
      {"<LF>", "done"},         {"<F1>", "done"},       {"<Tab><LF>", "go"},
      {"<Tab><Enter>", "go"},   {"<Tab>g", "go"},       {"<Tab>T", "it"},
      {"<Tab><Tab><F1>", "it"}, {"<Tab>9", ""},         {"<Tab><Tab><Tab><Enter>", ""},
      {"<F2>", "cancel"},       {"<Ctrl-X>", "cancel"}, {"<Tab>zi! <F3><Esc>", "cancel"},
  };
  for (const auto& [keys, action] : cases)
    leave(form + "bdefault:done\n", keys, "RETN=" + action + "\n");
  leave(form, "<LF>", "RETN=default\n");
  leave(form + "bdefault\n", "<Tab><Del><PgUp><F4><Up><LF>", "RETN=\n");
  leave(form, "g9<Left><Right><Left><Del><F2>", "V=\"g\";export V;RETN=cancel\n");
}

TEST(Form, ClicksReachTheGadgetUnderThem) {
  const std::string form =
      "text:\nA line across the fields\nendtext:\ndetext:2,2,9:ab:V\netext:20,2,5::W\n";
  const std::string at_v = "V=\"abx\";export V;", at_w = "W=\"x\";export W;";
  for (const std::string& mouse : {click(20, 2), click(25, 2)})
    leave(form, mouse + "x<LF>", at_w + "RETN=default\n");
  for (const std::string& mouse : {click(26, 2), click(20, 3), press(25, 2) + release(24, 2)})
    leave(form, mouse + "x<LF>", at_v + "RETN=default\n");
  leave(form + "pbutton:2,4:Save:save\n", click(8, 4), "RETN=save\n");
}

TEST(Form, StartsOnATextLineThatComesFirst) {
  const std::string form = "text:\nChoose\none\nendtext:\netext:2,5,9::V\npbutton:2,7:_Ok:ok\n";
  leave(form, "<Tab><Down>x<LF>", "RETN=\n");       // it leads nowhere, and its action is empty
  leave(form, "<Enter><Up><Enter>O", "RETN=ok\n");  // back past the lines, to the last gadget
}

}  // namespace scrim
