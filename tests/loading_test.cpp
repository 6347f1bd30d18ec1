// Screen files: what is read, what is refused and how, and the values that lines refer to.

#include "tests/terminal.h"

#include <gtest/gtest.h>

namespace scrim {

TEST(Loading, ErrorsAreShownWhereThereIsATerminalAndSaidWhereThereIsNone) {
  const std::string good(509, '#'), bad(510, '#'), too_long = "Line too long: " + bad.substr(0, 40);
  const std::string cases[][2] = {
      {"frame:1,1\n", "Invalid Command: frame:1,1"},
      {"# a comment\n\n${NOTHING}\n${HASH}\n x${HASH}\n", "Invalid Command:  x#y"},
      {"fullscreen:clear\nbutton\n", "Invalid Command: button"},
      {"fulls\r\n\r\nbad\r\n", "Invalid Command: bad"},
      {"text:\n# one\nbad:\nendtext: x\nendtext:\n", "Invalid Command: endtext:"},
      {good + "\ntext:\n" + good + "\nendtext:\nbad", "Invalid Command: bad"},
      {bad + "\n", too_long},
      {"text:\nx\n" + bad + "\nendtext:\n", too_long},
      {"atext:a,1,1\nx\n" + bad, too_long},
  };
  for (const auto& [content, message] : cases) {
    for (const std::string term : {"xterm", "no-such", ""}) {
      SCOPED_TRACE(testing::PrintToString(content) + " on " + term);
      Terminal t({.term = term, .controlling = !term.empty()});
      t.env("HASH", "#y");
      t.file("s", content);
      // The end of input counts as the key that is waited for.
      t.shell(message == too_long ? "exec scrim -f s </dev/null" : "exec scrim -f s");
      t.expect_shown(message);
      EXPECT_EQ(t.raw() == message + "\r\n", term != "xterm") << t.raw();
      t.type("x");
      t.expect_exit(message == too_long ? 3 : 2, "");
    }
  }
}

TEST(Loading, StandardInputRefersToTheEnvironmentAndToTheDefaultsReadBefore) {
  Terminal t;
  t.env("NAME", "Smith ${0} \\d");
  t.file("first", "zero\none two");
  t.file("later", "three\n");
  t.file("form", "text:\n${NAME} $NAME\nK\\dse \\\\\nendtext:\ndetext:4,8,20:${1}-${2}:${0}:CHAR:");
  t.shell("exec scrim -Aout -Ifirst -f stdin -Ilater <form");
  t.expect_screen(2, "\n    Smith ${0} \\d $NAME\n    K\xe4se \\\n");
  t.type("!<LF>");  // the keys still come from the terminal
  t.expect_exit(0, "RETN=default\n");
  EXPECT_EQ(t.read("out"), "zero 'one two-!'\n");
}

TEST(Loading, LinesOfDefaultsMayHoldAnyByteAndEndLikeThoseOfOtherSystems) {
  Terminal t;
  const std::string piece(1023, 'p');
  t.file("values", std::string("ab\0cd\nef\r\n\r\n\0\ng\rh\n", 18) + piece + "rest\nlast\r");
  t.file("s", "text:\n${0}|${1}|${2}|${3}|${4}|${6}|${7}|\nendtext:\n");
  t.run({"-Ivalues", "-f", "s"});
  t.expect_row(2, "    ab|ef|||g?h|rest|last?|");
  t.expect_exit(0, "");
}

// Frames are asked for before there is a terminal. They lie beneath their screen's gadgets.
TEST(Loading, FramesAreDrawnWhenTheirScreenIsFirstPainted) {
  Terminal t({.term = "scrim-plain"});
  t.file("a", "name:a\nfulls:overlay\nbox:2,1,9,3\npbutton:4,1:_Go:^b\n");
  t.file("b", "name:b\nfulls:overlay\nbox:3,2,5,2\npbutton:5,2:_No:^\n");
  t.run({"-f", ",a,,b,"});
  for (const char* picture :
       {"\n  +-(Go)--+\n  |       |\n  +-------+\n", "\n\n   +-(No)\n   +---+\n",
        "\n    (Go)\n\n\n", "\n\n     (No)\n\n"}) {
    t.expect_screen(1, picture);
    t.type("<Enter>");
  }
}

}  // namespace scrim
