// The examples, as a person runs them: from another directory, to their end.

#include "tests/terminal.h"

#include <filesystem>

#include <gtest/gtest.h>

namespace scrim {

static std::string example(const std::string& name) { return SCRIM_SOURCE "/examples/" + name; }

// The missing name is on the first page, the button that asks for it on the last one.
TEST(Examples, OrderIsCheckedOverAllPages) {
  Terminal t;
  t.command({example("order/order.sh")});
  t.type("<PgDn>");
  t.expect_shown("Article          [Anvil     ]");
  t.type("<PgDn> ");
  t.expect_shown("Somebody has to sign for it.");
  t.expect_text(5, 5, "[ ]");
  t.type("<LF>");
  t.expect_shown("Missing value in required field!");
  t.expect_shown("New order: who (1 of 3)");
  t.type("xMiller<Down><Down><Down><Right><Enter>");
  t.expect_shown("Dates are month/day/year: 12/31/2026.");
  t.type("<Enter>");
  t.expect_row(3,
               "│      Customer    [Miller                        ]                           │");
  t.type("<PgDn><F3>h<Enter><Tab><BS>12<Down> <PgDn><LF>");
  const std::string printed = t.expect_end(0);
  EXPECT_TRUE(printed.starts_with("Customer: Miller <>\nOrder:    12 of Hammer, by courier\n"))
      << printed;
  EXPECT_TRUE(printed.ends_with("Gift wrapped\nWith invoice\n")) << printed;
}

TEST(Examples, LogLineIsHandedBack) {
  Terminal t;
  std::filesystem::create_directory(t.path("a:b,c"));
  t.env("TMPDIR", t.path("a:b,c"));
  t.command({example("logview/logview.sh")});
  t.expect_text(2, 3, "10:11:00 job 1 finished");
  t.expect_reverse(2, 3, 73);
  t.type("<PgDn><PgDn><Down><Down>a");
  t.expect_text(2, 3, "10:41:00 job 31 finished");
  t.expect_reverse(4, 3, 73);
  t.type("s");
  t.expect_exit(0, "10:43:00 job 33 finished with status 0\n");
}

// Each form filled in with text and Enter alone: Enter goes on, and ends on the button that saves.
TEST(Examples, EnterWalksForward) {
  static const char* const walks[][3] = {
      {"customer/customer.sh",
       "Smith<Enter>Main St<Enter>53111<Enter>Bonn<Enter>/99<Enter>42.5<Enter>pw<Enter><Enter>",
       "Name:   Smith\nStreet: Main St\nTown:   53111 Bonn\nSince:  01/02/1999 00 00 00\n"
       "Credit: 42.5\nPassword of 2 characters\n"},
      {"order/order.sh",
       "Miller<Enter>m@x<Enter>/99<Enter><Enter>H<Enter>2<Enter> "
       "<Enter><Enter><Enter><Enter><Enter><Enter>1/31/99<Enter><Enter>",
       "Customer: Miller <m@x>\nOrder:    12 of Hammer, by mail\nOrdered:  01/02/1999 00 00 00\n"
       "By:       01/31/1999 00 00 00\nGift wrapped\nWith invoice\n"},
      {"member/member.sh", "Ann<Enter>1/2/99<Enter>B<Enter> <Enter><Enter><Enter>",
       "Ann (Basic) since 01/02/1999 00 00 00\nMail: _  Letter: _\n"},
      {"logview/logview.sh", "<Enter><Enter>", "10:11:00 job 1 finished with status 0\n"},
      // Two pages of the tour begin on a button that Enter would press: a hot key leads on.
      {"tour/tour.sh",
       "!<Enter>2<Enter><Enter>12<Enter><Enter> <Enter><Enter> "
       "<Enter><Enter>C<Enter><Enter>n<Enter><Enter>e",
       "The form was left with RETN=end. The script now has\n  NAME=Ann Smith!\n  PIECES=32\n"
       "  DUE=12/31/2026\n  PIN of 2 characters\n  GIFT=_\n  PAPER=_\n  MAIL=X COURIER=_\n"
       "  STATE=Closed\n  LINE=4,0\n"},
      {"cd .. && eval \"$(sed -n '/^```sh$/,/^```$/{/^```/!p;}' README.md)\"",
       "Ann<Enter><Enter><Enter><Enter><Enter><Enter>", "Hello, Ann (Free)\n"},
      {"sed -n '/^# customer/,/^\\.Ed/{/^\\.Ed/!p;}' ../man/scrim-screen.5 | scrim -f stdin",
       "Smith<Enter>1/2/99<Enter>C<Enter> <Enter> <Enter><Enter>",
       "MAIL=\"X\";export MAIL;PRINT=\"X\";export PRINT;STATE=\"Closed\";export STATE;"
       "DUE=\"01/02/1999 00 00 00\";export DUE;CUST=\"Smith\";export CUST;RETN=ok\n"}};
  for (const auto& [command, keys, printed] : walks) {
    SCOPED_TRACE(command);
    Terminal t;
    t.env("CUSTOMER_SINCE", "1/2");
    t.env("ORDER_DATE", "1/2");
    t.env("USER", "");
    t.env("MAIL", "_");
    t.shell("cd " + example("") + " && " + command);
    t.type(keys);
    t.expect_exit(0, printed);
  }
}

TEST(Examples, FindTheLibraryThroughLinks) {
  Terminal t;
  t.env("AT", example("customer/customer.sh"));
  t.shell(R"sh(mkdir bin && ln -s "$(command -v scrim)" bin && ln -s "$AT" form
PATH= ./form 2>&1; PATH=$PWD/bin:/usr/bin:/bin ./form)sh");
  t.type("<Ctrl-X>");
  t.expect_exit(0, "scrim is not on PATH\nNothing saved (cancel).\n");
}

TEST(Examples, OneShotModesTogether) {
  Terminal t;
  t.command({example("oneshot/oneshot.sh")});
  t.type("<Enter>");
  t.expect_shown(" lines.");
  t.expect_reverse(10, 30, 20);
  t.expect_reverse(4, 6, 13);
  t.type("<Down><Enter>");
  t.expect_shown("There is no file /none");
  t.type("x");
  t.type("Q<Enter>");
  t.expect_exit(0, "");
}

// Each question shows its text once its screen is there.
TEST(Examples, QuestionsOneAfterAnother) {
  Terminal t;
  t.env("USER", "ann");
  t.command({example("questions/questions.sh")});
  const char* const answers[][2] = {
      {"[ann   ", " lee\r\r"},
      {"│The roof: if it is dry│", " \r"},
      {"need the projector?", "n"},
      {"ann lee need the coffee?", "\r"},
      {"[ann lee; Hall (40), coffee", "!\r\r"},
      {"Your password books it:", "secret\n"},
      {"of 6 characters:", "\r"},
  };
  for (const auto& [shown, keys] : answers) {
    t.expect_shown(shown);
    t.type(keys);
  }
  t.expect_exit(0, "ann lee; Hall (40), coffee!\n");
}

}  // namespace scrim
