// scrim-check: each fault at its line, all in one run, and none in the examples.

#include "tests/terminal.h"

#include <regex>
#include <sstream>

#include <gtest/gtest.h>

namespace scrim {

// Forms of the files a and b, a "--" between them: their lines, one of 510 characters as LONG, and
// behind a "#" what is said of one.
static const char* const forms[] = {
    R"(frame:1 # Invalid Command: frame:1 | LONG # Line too long: LONG | fulls
swin:1,1,9,5:/none # Can't open '/none' | swpos:9,1 # the cursor's row 8 is not in the scroll window
swpos:1,0 | poplist:1,9:a:P:b # Not enough parameters for popup list | swhigh:3x # LINE missing, or not numbers
checkbox:9,9:_:C:c # checkbox save text reference error | --
pop:90,3 # the window leaves the screen of 80 columns and 24 rows | name: # the name is missing
fulls # a second window directive | bdefault # the action is missing
etext:2,3,4,5::A # X,Y,W missing, or not numbers
etext:2,4,5/0::B # M is 0, and must be 1 at least | etext:2,5,5 # edit field without a variable
button::a # button without a label | pbutton:1,9:_Go # button without an action
text: | a | LONG # Line too long: LONG | bad | endtext: | atext:1,1 | endtext:
atext:1,1 # Screen file syntax error - multiple text | bad | endtext:
btext:1,1 # endtext: is missing)",
    R"(etext:9,9,9::Z # stands before the window directive (fulls or pop) | pop:20,9
etext:1,1,18::A | etext:0,2,3::B # edit field leaves the window | pbutton:17,5:_a:x
pbutton:1,5:_Ab:x # hot key 'a' is that of line 5 too | checkbox:6,6:_:E | checkbox:9,6:_:F
checkbox:11,6:_:G # checkbox overlaps the checkbox of line 8
box:1,1,20,2 # the frame leaves the window | text:
seventeen columns # text leaves the window | endtext: | -- | fulls
text: | ab     cd | endtext: | checkbox:8,2:_:H
checkbox:6,2:_:I # checkbox overlaps the text of line 3
swin:19,5,9,3:a | text: |  |  |  |                abcdefghi | endtext:
btext:70,1 # the attached text leaves the window | 1234567890 | endtext:
etext:30,15,3::T:NUMBR # unknown type 'NUMBR' | etext:30,16,3::U:CHAR:Y # 'Y' where only N means something
etext:30,17,3::b c # variable 'b c' is no name for a shell)",
    R"(name:m | fulls | bdefault:^no # no screen of the list has the name 'no' | etext:1,1,9::A::N
pbutton:1,2:Go:>M # no screen of the list has the name 'M' | -- | fulls
name:m # screen name m is that of a:1 too
etext:1,1,9::B::N # required field on a screen that no action leads to
checkbox:2,2:_:A # variable A is that of a:4 too)",
    R"(fulls | pbutton:1,1:_Go:^p | -- | name:p | pop:20,9 | bdefault:^ | etext:1,1,9::A:CHAR
etext:1,2,9::B:DATE # a field that is checked on a pop-up that "^" leaves
etext:1,3,9::C:CHAR:N # a field that is checked on a pop-up that "^" leaves)"};

TEST(Check, EveryFaultIsSaidAtItsLine) {
  for (const std::string form : forms) {
    SCOPED_TRACE(form);
    std::istringstream lines(std::regex_replace(form, std::regex(" \\| "), "\n"));
    std::string name = "a", line, output, files[2];
    for (int number = 1; std::getline(lines, line); number++) {
      const size_t mark = std::min(line.find(" # "), line.size());
      if (mark < line.size())
        output += name + ":" + std::to_string(number) + ": " + line.substr(mark + 3) + "\n";
      if (line != "--") {
        files[name[0] - 'a'] += line.substr(0, mark) + "\n";
      } else {
        name = "b";
        number = 0;
      }
    }
    Terminal t;
    const std::regex token("LONG");
    for (const char* file : {"a", "b"})
      t.file(file, std::regex_replace(files[*file - 'a'], token, std::string(510, 'x')));
    t.command({SCRIM_CHECK_BINARY, "a,b"});
    t.expect_exit(1, std::regex_replace(output, token, std::string(40, 'x')));
  }
}

TEST(Check, EachListIsAFormOfItsOwn) {
  const std::string twice =
      "b:2: variable A is that of a:2 too\n"
      "b:3: Screen file syntax error - multiple text\n";
  const std::string unreached = "to:3: required field on a screen that no action leads to\n";
  const std::tuple<std::string, int, std::string> cases[] = {{"a b", 0, ""},
                                                             {"a,b a,b none", 2, twice},
                                                             {"go,to a,go,to", 1, unreached},
                                                             {"-q a,b", 1, ""},
                                                             {"a ,", 2, ""},
                                                             {"-x a", 2, ""}};
  for (const auto& [line, status, output] : cases) {
    SCOPED_TRACE(line);
    Terminal t;
    for (const char* name : {"a", "b"})
      t.file(name, "fulls\netext:2,2,5::A\natext:1,1\nendtext:\n");
    t.file("go", "fulls\nbutton:Go:>to\n");
    t.file("to", "name:to\nfulls\netext:2,2,5::T::N\n");
    t.shell(SCRIM_CHECK_BINARY " " + line);
    t.expect_exit(status, output);
  }
}

TEST(Check, ExamplesAreClean) {
  Terminal t;
  t.env("check", SCRIM_CHECK_BINARY);
  t.shell("cd " SCRIM_SOURCE R"(/examples/orders; export LOG_FILE=$check FOUND=$check
$check ../customer/customer.scrim ../logview/logview.scrim entry.scrim find.scrim found.scrim \
  change.scrim && cd ../order && $check who.scrim,goods.scrim,delivery.scrim,help.scrim &&
  cd ../tour &&
  $check fields.scrim,choices.scrim,buttons.scrim,scroll.scrim,screens.scrim,popup.scrim,help.scrim)");
  t.expect_exit(0, "");
}

}  // namespace scrim
