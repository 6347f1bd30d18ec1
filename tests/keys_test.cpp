// Keys: which bytes are one key, which are several, and which are none.

#include "tests/terminal.h"

#include <regex>

#include <gtest/gtest.h>

namespace scrim {

// The codes or names (without XKEY_) that the key test gives the bytes.
static std::string decoded(const std::string& term, const std::string& library,
                           const std::string& typed) {
  Terminal t({.term = term});
  t.run({library, "-d"});
  t.type(typed + "<Esc>");
  const std::regex line("[^]*?\n\rKey = (XKEY_)?(\\S+)|\n\r");
  return std::regex_replace(t.expect_end(0), line, "$2 ");
}

TEST(Keys, BytesAreDecodedAsTheTerminalDescribesThem) {
  const std::string cases[][4] = {
      {"xterm", "-", "a\xe4\x80<Ctrl-K><Ctrl-L><LF><Enter><Tab>", "97 -28 -128 11 12 10 13 9"},
      {"xterm", "-", "<Up><Down><Left><Right>", "UP DOWN LEFT RIGHT"},
      {"xterm", "-", "<Del><PgDn><PgUp><BS>", "DELETE NEXT PREV BACKSPACE"},
      {"xterm", "-", "<F1><F2><F3><F4><F12>", "F1 F2 F3 F4 F4"},
      {"xterm", "-", "<F5><F6><F7><F8><F9><F10><F11>", "F4 F4 F4 F4 F4 F4 F4"},
      {"xterm", "-",
       "\033[1;2P\033[1;2Q\033[1;2R\033[1;2S\033[15;2~\033[17;2~\033[18;2~\033[19;2~\033[20;2~"
       "\033[21;2~\033[23;2~\033[24;2~",
       "F4 F4 F4 F4 F4 F4 F4 F4 F4 F4 F4 F4"},
      // A key that begins with the whole of an earlier one is never recognised.
      {"scrim-keys", "-", "\033[20x<F1><F4>\033[29x", "NULL F1 RIGHT 126 F4"},
      {"scrim-keys", "-T", "<F1><F2>\033[29x<PgDn><PgUp>", "NULL F1 F4 NEXT PREV"},
      {"scrim-gcaps", "-T", "<Ctrl-H>\033[1P<Ctrl-?>", "BACKSPACE NEXT 127"},
      {"scrim-cookie", "-", "<Ctrl-K><Ctrl-L><LF><BS><Enter>", "UP RIGHT DOWN BACKSPACE 13"},
      {"dumb", "-", click(10, 5) + "<Esc>>X", "NULL MOUSE MOUSE"},
  };
  for (const auto& [term, library, typed, keys] : cases) {
    SCOPED_TRACE(term + " " + testing::PrintToString(typed));
    EXPECT_EQ(decoded(term, library, typed), keys + " ESCAPE  24 lines ");
  }
}

// The pop-up takes one key; what was received with it and is no part of it goes to the field.
TEST(Keys, NothingTypedIsLostWhenNoKeyMatches) {
  const char* const cases[][3] = {
      {"\033x", "y", "xy"},
      {"\033[2", "1x", "[21x"},  // too late for the key that it began
      {"\033>2;1", "ab", "b"},   // a report without an end is dropped whole
      {"\033>12345678901234567890123", "X", ">12345678901234567890123X"},  // too long for one
  };
  for (const auto& [typed, later, value] : cases) {
    SCOPED_TRACE(value);
    Terminal t({.term = "scrim-keys", .nonblocking = value[0] == '['});
    t.form("etext:2,2,40::V:CHAR:N\nbdefault:ok:Y\n");
    for (const char* bytes : {"\n", typed, later, "\n"}) t.type_bytes(bytes);
    t.expect_exit(0, std::string("V=\"") + value + "\";export V;RETN=ok\n");
  }
}

}  // namespace scrim
