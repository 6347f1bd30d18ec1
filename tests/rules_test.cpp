// Rules that need no terminal: dates, substitution, button labels, the graph of cursor keys.

#include "common/program.h"
#include "common/text.h"
#include "runtime/validation.h"
#include "screens/directives.h"
#include "screens/neighbours.h"
#include "values/values.h"

#include <cstdio>
#include <cstdlib>
#include <deque>
#include <random>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace scrim {

TEST(Rules, DatesTakeTheirCanonicalShapeOrAreRefused) {
  const std::pair<const char*, std::vector<std::string>> cases[] = {
      {"01/02/1999 00 00 00", {"1/2/99", "1/02/1999", "01/2/99 00 00 00"}},
      {"01/02/1900 25 99 99", {"01/02/00 25 99 99", "1/2/1900 25 99 99"}},
      {"02/29/1996 00 00 00", {"2/29/96", "02/29/1996"}},
      {"04/30/1999 00 00 00", {"4/30/99"}},
      {"09/30/1999 00 00 00", {"9/30/99"}},
      {"10/31/1999 00 00 00", {"10/31/99"}},
      {"12/31/1999 00 00 00", {"12/31/99"}},
      {"01/02/**", {"1/2/*", "1/2/**"}},
      {"**/31/1999 00 00 00", {"*/31/1999", "**/31/99"}},
      {"Day out of range in date field!",
       {"02/29/1999", "02/30/2000", "04/31/2000", "06/31/2000", "09/31/2000", "11/31/2000",
        "01/32/2000", "1/0/2000"}},
      {"Month out of range in date field!", {"13/01/2000", "00/10/2000", "0*/10/2000"}},
      {"Syntax error in date field!",
       {"*", "01/02", "01-02-2000", "01/02/**99", "01/02/199", "01/02/1999 12", "x/2/99",
        "01/02/1999 12:30:00",
        "1/02/2000 00 00 00" + std::string(61, 'x')}}};  // no room for a zero
  for (const auto& [result, all] : cases)
    for (const std::string& typed : all) {
      char date[80];
      copy_text(date, typed);
      const char* message = check_date_text(date);
      EXPECT_STREQ(message ? message : date, result) << typed;
    }
}

TEST(Rules, MissingNumbersAreZero) {
  int numbers[] = {7, 7, 7};
  EXPECT_EQ(read_numbers("4,x,5", ",,", numbers), 1);
  EXPECT_EQ(std::vector(numbers, numbers + 3), (std::vector{4, 0, 0}));
}

TEST(Rules, ReferencesAndEscapesAreSubstituted) {
  setenv("CUST", "ACME ${ZERO} \\d", 1);
  setenv("NINETEEN_CHARACTERS+", "long", 1);
  set_alt_an_env("abc");
  const std::pair<std::string, std::string> cases[] = {
      {"$CUST ${0}-${1}.${CUST", "$CUST abc-.ACME ${ZERO} \\d"},
      {"${NINETEEN_CHARACTERS}${NINETEEN_CHARACTERS+}.", "long."},
      {"a\\\\b\\A\\ \\", "a\\b\xC1\xA0\\"},
      {"${unset}${}|", "|"},
      {std::string(2000, 'z'), std::string(1023, 'z')}};
  for (const auto& [text, becomes] : cases) {
    env_substitute(text.c_str());
    EXPECT_EQ(tbuf, becomes) << text;
  }
  for (int i = 1; i < 5000; i++) set_alt_an_env(std::to_string(i * 7).c_str());
  for (int i = 1; i < 5000; i++)  // also the one that was looked up before
    EXPECT_EQ(get_an_env(std::to_string(i)), std::to_string(i * 7));
}

static void new_screen() {
  static auto& all = *new std::deque<per_screen>;  // as their gadgets, kept to the end
  s_screen = &all.emplace_back();
}

TEST(Rules, ButtonLabelsActionsAndOptions) {
  const std::pair<const char*, const char*> cases[] = {
      {"button:_Quit:q", "(\xD1uit)|q 6 wide, hot key q"},
      {"button: Plain:p", "Plain|p 5 wide, hot key 0"},
      {"button:<Back:<menu", "<Back>|<menu 6 wide, hot key 0"},
      {"button:(a_1_B:x y:Y", "(a\xB1\xC2)|x 5 wide, hot key b"},
      {"button:OK:ok:Yes", "(OK)|ok 4 wide, hot key 0, validates"},
      {"button:A_", "(A)| 3 wide, hot key 0"},
      {"button:(A: x:Y", "(A)| 3 wide, hot key 0"},
      {"button:a:12345678901234567890", "(a)|1234567890123456789 3 wide, hot key 0"}};
  for (const auto& [line, described] : cases) {
    copy_text(cbuf, line);
    new_screen();
    f_button();
    const gadget_list& b = *s_screen->gadget_lp;
    snprintf(tbuf, sizeof tbuf, "%s|%s %d wide, hot key %c%s", b.text, b.op, b.w,
             b.hotkey ? b.hotkey : '0', b.dbtype == DBT_VALIDATE ? ", validates" : "");
    EXPECT_STREQ(tbuf, described) << line;
  }
}

// The definition, pair by pair: what leads left and up from b, past the start the last gadget.
// Right and down are its mirror image (99 - line, 99 - column): the layout's edges are -1 and 100.
static void left_and_up(gadget_list* b, bool mirrored) {
  auto at = [=](const gadget_list* t) {
    return mirrored ? std::pair(99 - t->y, 99 - t->x) : std::pair(t->y, t->x);
  };
  const auto [line, column] = at(b);
  int left_line = -1, left_column = -1, up_line = -1, up_column = -1;
  const gadget_list *left = nullptr, *up = nullptr, *last = b;
  for (const gadget_list* t = s_screen->gadget_lp; t; t = t->next) {
    if (t->flags == GF_TEXT) continue;
    if (at(t) > at(last) || (at(t) == at(last) && t->gadgetid < last->gadgetid)) last = t;
    if (t == b) continue;
    const auto [l, c] = at(t);
    const bool same = left_line == line;
    if ((l > left_line && l < line) || (same && l == line && c > left_column && c < column) ||
        (!same && ((l == left_line && c > left_column) || (l == line && c < column))))
      left_line = l, left_column = c, left = t;
    if ((l > up_line && l < line) ||
        (l == up_line && std::abs(c - column) < std::abs(column - up_column)))
      up_line = l, up_column = c, up = t;
  }
  (mirrored ? b->right : b->left) = (left ? left : last)->gadgetid;
  (mirrored ? b->down : b->up) = (up ? up : last)->gadgetid;
}

static std::vector<int> neighbours() {
  std::vector<int> ids;
  for (const gadget_list* t = s_screen->gadget_lp; t; t = t->next)
    ids.insert(ids.end(), {t->up, t->down, t->right, t->left});
  return ids;
}

static void add_gadget(int x, int y, int flags) {
  gadget_list& t = *CreateGadget();
  std::tie(t.x, t.y, t.flags) = std::tuple(x, y, flags);
}

TEST(Rules, NeighboursAreThoseOfTheDefinitionInAnyLayout) {
  new_screen();
  for (int x : {2, 30, 55}) add_gadget(x, 2, GF_ETEXT);
  for (int x : {60, 46}) add_gadget(x, 21, GF_BUTTON);
  link_neighbours(*s_screen);
  EXPECT_EQ(neighbours(),
            (std::vector{3, 4, 1, 3, 3, 4, 2, 0, 3, 3, 4, 1, 2, 0, 0, 4, 2, 0, 3, 2}));
  std::mt19937 random(20);
  auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
  const int kinds[] = {GF_BUTTON | GF_DEFAULT, GF_ETEXT, GF_TEXT, GF_SWIN | GF_SWHIGH, GF_POPLIST};
  const int places[] = {-2, -1, 0, 1, 30, 55, 98, 99, 100, 101, 102};
  for (int layout = 0; layout < 5000; layout++) {
    new_screen();
    for (int i = 1 + below(9); i > 0; i--)
      add_gadget(places[below(11)], places[below(11)], kinds[below(5)]);
    link_neighbours(*s_screen);
    const std::vector<int> found = neighbours();
    for (gadget_list* b = s_screen->gadget_lp; b; b = b->next)
      if (b->flags != GF_TEXT) left_and_up(b, false), left_and_up(b, true);
    ASSERT_EQ(found, neighbours()) << "layout " << layout;
  }
}

}  // namespace scrim
