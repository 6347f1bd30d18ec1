// Forms of several screens: switching, validation over all of them, checkboxes, load errors.

#include "tests/terminal.h"

#include <cstddef>

#include <gtest/gtest.h>

namespace scrim {

TEST(Screens, ActionsAndPageKeysSwitchAndKeepTheActiveGadget) {
  Terminal t;
  t.file("main", "name:main\nfulls\netext:9,3,5::A\nbutton:_Next:>two\nbutton:_Help:^help\n");
  t.file("two", "name:two\nfulls:clear\ntitle:Two\nbutton:_Back:<main\nbutton:Bare:^bare\n");
  t.file("help", "name:help\npop:30,6\ntitle:Help\nbutton:Done:^\nbutton:Two:>two\n");
  t.file("bare", "name:bare\npop:20,4\nbdefault:^\n");
  t.run({"-f", "main,two,help,bare"});
  t.type("x<Down><Enter>");
  t.expect_text(9, 38, "Help");
  t.expect_text(3, 8, "[x    ]");  // the pop-up stands over the form
  t.expect_cursor(13, 35);
  t.type("<Enter>");
  t.expect_reverse(21, 32, 6);
  t.type("<PgDn>");
  t.expect_text(21, 32, std::string(6, ' '));  // nothing of the button highlighted before
  t.type("<Left><Enter><Tab><Enter> q<Up>");   // on a screen without gadgets these do nothing
  t.expect_text(10, 30, "┌──────────────────┐ ");
  t.type("<LF>");
  t.expect_reverse(21, 46, 6);
  t.type("B");
  t.expect_reverse(21, 32, 6);
  t.type("<Enter><Tab><Enter>");
  t.expect_text(13, 1, std::string(77, ' '));
  t.type("<PgUp><Esc>");  // the switch has taken the pop-up's place
  t.expect_exit(0, "A=\"x\";export A;RETN=cancel\n");
}

TEST(Screens, ErrorsEndTheProgramWithAMessage) {
  const struct {
    std::string line, message;
    std::size_t confirmed = 0;  // confirm keys, from the first screen on, until it shows
    int status = 3;
  } cases[] = {{"bdefault:<Main", "switch to screen Main from main unsuccessful", 2},
               {"bdefault:^nowhere", "pop up screen nowhere from main unsuccessful", 2},
               {"bdefault:^", "return from screen main not allowed", 2},
               {"swhigh:cursor", "swhigh with no swin"},
               {"swin:1,1,9,5:absent", "Can't open 'absent'"},
               {"swin:1,1,9,5:/tmp:V", "Can't open '/tmp'"},
               {"checkbox:1,1:X:C:c", "checkbox save text reference error"},
               {"atext:5,5", "Screen file syntax error - multiple text"},
               {"poplist:1,1::V:one", "Not enough parameters for popup list", 0, 2}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line);
    Terminal t;
    t.file("first", "fulls\nbdefault:>main\nswin:1,1,9,5:first\natext:1,1\nendtext:\n");
    t.file("second", "name:main\nfulls\n" + c.line);
    t.run({"-f", "first,second"});
    for (std::size_t i = 0; i < c.confirmed; i++) {
      EXPECT_EQ(t.screen().find(c.message), std::string::npos) << i;
      t.type("<LF>");
    }
    t.expect_shown(c.message);
    t.type("x");
    t.expect_exit(c.status, "");
  }
}

// What has been typed survives a pop-up that finds no room.
TEST(Screens, APopUpOnAFullStackIsRefused) {
  Terminal t;
  t.form("name:main\nfulls:clear\nbdefault:^main\netext:9,3,5::A\n");
  t.type("x" + times(22, "<LF>") + "y<LF>");
  t.expect_shown("pop up screen main from main unsuccessful");
  t.type(" ");
  t.expect_row(12, "│" + std::string(77, ' ') + "│");
  t.type("z<Esc>");
  t.expect_exit(0, "A=\"xyz\";export A;RETN=cancel\n");
}

// The first of two screens without a name is the one that is shown.
TEST(Screens, AFailedCheckShowsAScreenWithItsFrames) {
  Terminal t;
  t.file("a", "name:a\nfulls\ndbutton:_OK:ok:Y\n");
  t.file("b", "fulls\nbox:20,9,10,9\netext:3,3,3::B\n");
  t.file("c", "fulls\netext:3,3,3::C::N\n");
  t.run({"-f", "a,b,c"});
  t.type("<Enter>x");
  t.expect_text(10, 20, "│        │ ");
}

TEST(Screens, ValidationShowsTheFailingFieldOfAnyScreen) {
  Terminal t;
  t.file("main", "name:main\nfulls\netext:9,3,9::A::N\nbutton:OK:ok:Y\n");
  t.file("two",
         "name:a name 20 characters\nfulls\netext:9,6,9::W:DATE:\netext:9,7,9::R::N\n"
         "pbutton:3,9:Save:yes:Y\nbox:20,9,10,9\n");
  t.run({"-f", "main,two"});
  t.type("<Up><Esc>");  // cancelling from a button that validates can be refused too
  t.expect_shown("Missing value in required field!");
  t.type("xa<Down><Enter>");
  t.expect_shown("Missing value in required field!");
  t.type("x");
  t.expect_cursor(7, 9);
  t.expect_text(10, 20, "│        │ ");        // where the message lay
  t.expect_text(21, 1, std::string(77, ' '));  // where the first screen has its button
  t.type("r<Up>13/1/99<Down><Down><Enter>");
  t.expect_shown("Month out of range in date field!");
  t.type("x");
  t.expect_cursor(6, 16);
  t.type(times(6, "<BS>") + "2/3/00<Down><Down><Enter>");
  t.expect_exit(0, R"(A="a";export A;W="12/03/1900 00 00 00";export W;R="r";export R;RETN=yes
)");
}

TEST(Screens, ExclusiveCheckboxesClearTheOthersAndPaintTheirText) {
  Terminal t;
  t.env("WHO", "you");
  t.form(
      "fulls:overlay\ncheckbox:5,2::C\nxcheckbox:5,3:X:P:apple\nxcheckbox:5,4:_:Q:b\n"
      "xcheckbox:5,5:_:R\natext:12,2\nA\n  B ${WHO}\n\n#C\nendtext:\nbtext:12,2\n\\ two\n" +
      std::string(9000, '\n'));
  t.type(" <Down>  ");  // unchecks and checks it
  t.expect_screen(2, "\n    [X]     A\n    [X]       B you\n    [ ]\n    [ ]     #C\n");
  t.type("<Down> ");
  t.expect_screen(2, "\n    [X]      two\n    [ ]       B you\n    [X]\n    [ ]     #C\n");
  for (int row : {3, 4, 5}) t.expect_reverse(row, 5, row == 4);
  t.type("<Up> <Down> ");
  t.expect_text(2, 12, "Atwo");  // the marked blank has become one that leaves its cell alone
  t.type("<LF>");
  t.expect_exit(0, R"(C="X";export C;P="_";export P;Q="X";export Q;R="_";export R;RETN=default
)");
}

}  // namespace scrim
