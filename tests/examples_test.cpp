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
  t.type(kPageDown);
  t.expect_shown("Article          [Anvil     ]");
  t.type(kPageDown);
  t.type(" ");
  t.expect_shown("Somebody has to sign for it.");
  t.expect_text(5, 5, "[ ]");
  t.type("\n");
  t.expect_shown("Missing value in required field!");
  t.expect_shown("New order: who (1 of 3)");
  t.type("x");
  t.type("Miller" + std::string(kDown) + kDown + kDown + kRight);
  t.type("\r");
  t.expect_shown("Dates are month/day/year: 12/31/2026.");
  t.type("\r");
  t.expect_row(3,
               "│      Customer    [Miller                        ]                           │");
  t.type(std::string(kPageDown) + kF3 + "h\r\t" + kBackspace + "12");
  t.type(kDown);
  t.type(" ");
  t.type(std::string(kPageDown) + "\n");
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
  t.type(std::string(kPageDown) + kPageDown + kDown + kDown);
  t.type("a");
  t.expect_text(2, 3, "10:41:00 job 31 finished");
  t.expect_reverse(4, 3, 73);
  t.type("s");
  t.expect_exit(0, "10:43:00 job 33 finished with status 0\n");
}

// Each form filled in with text and Enter alone: Enter goes on, and ends on the button that saves.
TEST(Examples, EnterWalksForward) {
  static const char* const walks[][3] = {
      {"customer/customer.sh", "Smith\rMain St\r53111\rBonn\r/99\r42.5\rpw\r\r",
       "Name:   Smith\nStreet: Main St\nTown:   53111 Bonn\nSince:  01/02/1999 00 00 00\n"
       "Credit: 42.5\nPassword of 2 characters\n"},
      {"order/order.sh", "Miller\rm@x\r/99\r\rH\r2\r \r\r\r\r\r\r1/31/99\r\r",
       "Customer: Miller <m@x>\nOrder:    12 of Hammer, by mail\nOrdered:  01/02/1999 00 00 00\n"
       "By:       01/31/1999 00 00 00\nGift wrapped\nWith invoice\n"},
      {"logview/logview.sh", "\r\r", "10:11:00 job 1 finished with status 0\n"},
      // Two pages of the tour begin on a button that Enter would press: a hot key leads on.
      {"tour/tour.sh", "!\r2\r\r12\r\r \r\r \r\rC\r\rn\r\re",
       "The form was left with RETN=end. The script now has\n  NAME=Ann Smith!\n  PIECES=32\n"
       "  DUE=12/31/2026\n  PIN of 2 characters\n  GIFT=_\n  PAPER=_\n  MAIL=X COURIER=_\n"
       "  STATE=Closed\n  LINE=4,0\n"},
      {"cd .. && eval \"$(sed -n '/^```sh$/,/^```$/{/^```/!p;}' README.md)\"", "Ann\r\r",
       "Hello, Ann\n"},
      {"sed -n '/^# customer/,/^\\.Ed/{/^\\.Ed/!p;}' ../man/scrim-screen.5 | scrim -f stdin",
       "Smith\r1/2/99\rC\r \r \r\r",
       "MAIL=\"X\";export MAIL;PRINT=\"X\";export PRINT;STATE=\"Closed\";export STATE;"
       "DUE=\"01/02/1999 00 00 00\";export DUE;CUST=\"Smith\";export CUST;RETN=ok\n"}};
  for (const auto& [command, keys, printed] : walks) {
    SCOPED_TRACE(command);
    Terminal t;
    t.env("CUSTOMER_SINCE", "1/2");
    t.env("ORDER_DATE", "1/2");
    t.env("USER", "");
    t.env("MAIL", "_");
    t.command({"sh", "-c", "cd " + example("") + " && " + command});
    t.type(keys);
    t.expect_exit(0, printed);
  }
}

TEST(Examples, FindTheLibraryThroughLinks) {
  Terminal t;
  t.env("AT", example("customer/customer.sh"));
  t.command(
      {"sh", "-c",
       "mkdir bin && ln -s \"$(command -v scrim)\" bin && ln -s \"$AT\" form && PATH= ./form 2>&1;"
       " PATH=$PWD/bin:/usr/bin:/bin ./form"});
  t.type("\030");
  t.expect_exit(0, "scrim is not on PATH\nNothing saved (cancel).\n");
}

TEST(Examples, OneShotModesTogether) {
  Terminal t;
  t.command({example("oneshot/oneshot.sh")});
  t.type("\r");
  t.expect_shown(" lines.");
  t.expect_reverse(10, 30, 20);
  t.expect_reverse(4, 6, 13);
  t.type(std::string(kDown) + "\r");
  t.expect_shown("There is no file /none");
  t.type("x");
  t.type("Q\r");
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
