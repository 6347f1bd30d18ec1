// scrim-check: each finding at its line, all in one run, and none in the examples.

#include "screens/directives.h"
#include "tests/terminal.h"
#include "tools/check/line_rules.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>

#include <fnmatch.h>

#include <gtest/gtest.h>

namespace scrim {

// A folder of tests/check is a case: its files are one form, in the order of their names, or the
// lists that its file `call` names; `form.expected` is what is said of them.
TEST(Check, EveryFindingIsSaidAtItsLine) {
  for (const auto& folder : std::filesystem::directory_iterator(SCRIM_SOURCE "/tests/check")) {
    SCOPED_TRACE(folder.path());
    Terminal t({.directory = folder.path()});
    t.command({"sh", "-c", "exec $0 $(cat call 2>/dev/null || ls *.scrim | paste -s -d , -)",
               program("scrim-check")});
    const std::string expected = t.read(folder.path() / "form.expected");
    const bool has_fault = std::regex_search(expected, std::regex("(^|\n)\\S+ (?!note: )"));
    t.expect_exit(has_fault ? 1 : 0, expected);
  }
}

// The messages of the page's list, with "*" for each argument.
static std::set<std::string> messages_of(const std::string& page) {
  static const std::pair<const char*, const char*> rendering[] = {
      {" Ns ", ""},   {"Ar [A-Z]+( No)?", "*"}, {R"(\\e)", "\\"},
      {R"(\\&)", ""}, {R"(\\\(aq)", "'"},       {R"(\\\(dq)", "\""}};
  std::set<std::string> messages;
  std::istringstream lines(page.substr(0, page.find("\n.Sh EXIT")).substr(page.find("\n.Sh MESS")));
  std::string prefix;
  for (std::string line; std::getline(lines, line);) {
    if (line == ".Ss Notes") prefix = "note: ";
    if (!line.starts_with(".It ")) continue;
    for (const auto& [from, to] : rendering) line = std::regex_replace(line, std::regex(from), to);
    messages.insert(prefix + line.substr(4));
  }
  return messages;
}

// The cases bring about all that the page lists, and nothing else.
TEST(Check, ThePageListsEveryMessage) {
  const std::set<std::string> listed =
      messages_of(Terminal().read(SCRIM_SOURCE "/man/scrim-check.1"));
  std::set<std::string> met;
  for (const auto& folder : std::filesystem::directory_iterator(SCRIM_SOURCE "/tests/check")) {
    std::ifstream expected(folder.path() / "form.expected");
    for (std::string line; std::getline(expected, line);) {
      line = line.substr(line.find(": ") + 2);
      const auto is_it = [&](const std::string& message) {
        return message.starts_with("note: ") == line.starts_with("note: ") &&
               fnmatch(message.c_str(), line.c_str(), FNM_NOESCAPE) == 0;
      };
      const auto found = std::find_if(listed.begin(), listed.end(), is_it);
      ASSERT_NE(found, listed.end()) << line;
      met.insert(*found);
    }
  }
  EXPECT_EQ(met, listed);
}

TEST(Check, WhateverTheTableNamesIsChecked) {
  std::string lines = "fulls\n", output;
  for (int row = 0, line = 2; row < directive_rows; row++, line += 2) {
    const std::string keyword = file_funcs[row], names = file_numbers[row];
    lines += keyword + (keyword.back() == ':' ? "x\n" : ":x\n") + "endtext:\n";
    if (!names.empty())
      output += "form:" + std::to_string(line) + ": " + names.substr(0, names.find('/')) +
                " missing, or not numbers\n";
  }
  Terminal t;
  t.file("form", lines);
  t.command({"sh", "-c", "$0 form | grep missing,", program("scrim-check")});
  t.expect_exit(0, output);
  for (const rule& it : rules) {
    const int row = directive_row(it.keyword);
    EXPECT_TRUE(row != -1 && it.keyword == file_funcs[row]) << it.keyword;
  }
}

// Files of refused lines are closed, many fields take little time, a check that dies has a message,
// and no process reads on when scrim-check is killed.
TEST(Check, CallsAndLimits) {
  const std::string line = "bad:1: Invalid Command: x\n";
  const std::string note = "variable PATH has another use in scripts\n";
  const std::tuple<std::string, int, std::string> cases[] = {
      {"$0 good bad", 1, line + "bad:3: no screen of the list has the name 'x'\n"},
      {"env --ignore-signal=CHLD $0 bad,none good", 2, line},
      {"$0 -q bad", 1, ""},
      {"$0 good ,", 2, ""},
      {"$0 -\x9b good 2>&1", 2, "Usage: scrim-check [-qW] file[,file...] ...\n"},
      {"$0 noted", 0, "noted:2: note: " + note},
      {"$0 -q noted", 0, ""},
      {"$0 -W noted", 1, "noted:2: " + note},
      {"$0 -qW noted", 1, ""},
      {"yes swin:1,1,9,5:/ | head -n 1100 >>good; echo swin:1,9,9,5:bad >>good; ulimit -n 200; "
       "$0 good | grep -c open",
       0, "1100\n"},
      {"seq 40000 | sed 's/.*/etext:1,&,9::V&/' >>good; ulimit -t 5; $0 good | grep -c leaves", 0,
       "39978\n"},
      {"mkfifo pipe; $0 pipe 2>said & until pkill -9 -P $!; do sleep .1; done; wait $!; echo $?; "
       "cat said",
       0, "2\nscrim-check: pipe: the check ended without a result\n"},
      {"mkfifo pipe; $0 pipe & until pgrep -P $! >pid; do sleep .1; done; kill $!; wait $!; echo "
       "$?; sleep .1; timeout .3 sh -c ': >pipe'; echo $?",
       0, "143\n124\n"}};
  for (const auto& [call, status, output] : cases) {
    SCOPED_TRACE(call);
    Terminal t;
    t.file("good", "fulls\n");
    t.file("noted", "fulls\netext:1,1,9::PATH\n");
    t.file("bad", "x\nfulls\nbdefault:>x\n");
    t.command({"sh", "-c", call, program("scrim-check")});
    t.expect_exit(status, output);
  }
}

// Screen files that are a form together; any other is a form by itself.
static const std::map<std::string, std::string> lists = {
    {"order", "who.scrim,goods.scrim,delivery.scrim,help.scrim"},
    {"tour",
     "fields.scrim,choices.scrim,buttons.scrim,scroll.scrim,screens.scrim,popup.scrim,help.scrim"},
};

TEST(Check, ExamplesAreClean) {
  using std::filesystem::directory_iterator;
  for (const auto& folder : directory_iterator(SCRIM_SOURCE "/examples")) {
    SCOPED_TRACE(folder.path());
    const auto found = lists.find(folder.path().filename());
    const std::string list = found == lists.end() ? "" : found->second;
    std::string forms = list;
    for (const auto& file : directory_iterator(folder)) {
      const std::string name = file.path().filename();
      const bool is_listed = ("," + list + ",").find("," + name + ",") != std::string::npos;
      if (name.ends_with(".scrim") && !is_listed) forms += " " + name;
    }
    if (forms.empty()) continue;
    Terminal t({.directory = folder.path()});
    t.command({"sh", "-c",
               "export LOG_FILE=$0 FOUND=$0 RECIPE_LOG=$0 RECIPE_POSITION=1,0; exec $0 -W " + forms,
               program("scrim-check")});
    t.expect_exit(0, "");
  }
}

}  // namespace scrim
