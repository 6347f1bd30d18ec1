// The manual pages and the completions against the program's own tables: nothing of it is missing
// there, and nothing stands there that it does not know.

#include "screens/directives.h"
#include "tests/terminal.h"

#include <cstddef>
#include <regex>
#include <set>

#include <gtest/gtest.h>

namespace scrim {

using words = std::set<std::string>;

static auto source(const std::string& name) { return Terminal().read(SCRIM_SOURCE "/" + name); }

// What the pattern's only group matches, anywhere in the text.
static words found(const std::string& text, const std::string& pattern) {
  words all;
  const std::regex expression(pattern);
  for (std::sregex_iterator at(text.begin(), text.end(), expression), end; at != end; at++)
    all.insert((*at)[1]);
  return all;
}

TEST(Pages, EveryDirectiveHasItsEntry) {
  words keywords;
  for (const char* const* row = file_funcs; **row; row++)
    keywords.insert(std::string(*row, std::string(*row).find_last_not_of(':') + 1));
  EXPECT_EQ(found(source("man/scrim-screen.5"), "\n\\.It Li ([a-z]+)(?=[: \n])"), keywords);
  const words coloured = found(
      source("share/vim/syntax/scrim.vim"),
      R"((?:/\^\\%\(|\\\|)([a-z]+):?(?:\\@=)?(?=\\[|)][^\n]*(?:nextgroup=scrimItems| end=)))");
  EXPECT_EQ(coloured, keywords);
  words known = found(source("fuzz/dictionary"), "=\"([a-z]+)");
  for (const std::string& keyword : keywords) EXPECT_TRUE(known.contains(keyword)) << keyword;
}

TEST(Pages, EveryPropertyOfASketchHasItsEntry) {
  const words names = found(source("tools/sketch/properties.cpp"), "\n    \\{\"([A-Z0-9a-z]+)\", ");
  EXPECT_TRUE(names.contains("required"));
  std::string entries;
  for (const std::string& entry : found(source("man/scrim-sketch.5"), "\n\\.It (Cm [^\n]+)"))
    entries += entry + "\n";
  for (const std::string& text :
       {entries, source("share/vim/syntax/scrimsketch.vim"), source("fuzz/sketch.dictionary")}) {
    const words known = found(text, "([A-Z0-9a-z]+)");
    for (const std::string& name : names) EXPECT_TRUE(known.contains(name)) << name << "\n" << text;
  }
}

// The part of the text from `begin` to the next `end`.
static std::string part(const std::string& text, const std::string& begin, const std::string& end) {
  const std::size_t start = text.find(begin);
  EXPECT_NE(start, std::string::npos) << begin;
  return start == std::string::npos ? "" : text.substr(start, text.find(end, start) - start);
}

// The options that a function of the bash completions knows.
static words bash_options(const std::string& function) {
  const std::string body = part(source("share/completions/scrim.bash"), "\n" + function, "\n}");
  return found(part(body, "_scrim_options '", "' "), "-([A-Za-z])");
}

TEST(Pages, EveryOptionHasItsEntryAndCompletions) {
  const words letters = found(source("src/driver/main.cpp"), "\n    \\{'(.)', ");
  EXPECT_TRUE(letters.contains("f") && letters.contains("A"));
  EXPECT_EQ(found(source("man/scrim.1"), "\n\\.It Fl (\\S)(?= |\n)"), letters);
  EXPECT_EQ(bash_options("_scrim()"), letters);
  EXPECT_EQ(found(source("share/completions/_scrim"), "\n  '-([A-Za-z])-?\\["), letters);
  EXPECT_EQ(found(source("share/completions/scrim.fish"), "\ncomplete -c scrim -s (\\S) "),
            letters);
}

TEST(Pages, CompletionsOfTheCompanionsKnowTheirOptions) {
  for (const std::string name : {"scrim-check", "scrim-drive", "scrim-sketch"}) {
    const std::string page = source("man/" + name + ".1");
    words letters;
    for (const std::string& group : found(part(page, "\n.Sh SYN", "\n.Sh DES"), " Fl ([A-Za-z]+)"))
      for (const char letter : group) letters.insert(std::string(1, letter));
    EXPECT_FALSE(letters.empty()) << name;
    EXPECT_EQ(bash_options("_scrim_" + name.substr(6) + "()"), letters);
    const std::string zsh = part(source("share/completions/_scrim"), "\n  " + name + ")", ";;");
    EXPECT_EQ(found(zsh, "[')]-([A-Za-z])\\["), letters);
    const std::string fish = source("share/completions/scrim.fish");
    EXPECT_EQ(found(fish, "\ncomplete -c " + name + " -s (\\S) "), letters);
  }
}

TEST(Pages, EveryFunctionOfTheLibraryHasItsEntry) {
  const words functions = found(source("share/scrim/scrim.sh"), "\n(scrim_[a-z]+)\\(\\)");
  EXPECT_TRUE(functions.contains("scrim_read"));
  EXPECT_EQ(found(source("man/scrim.sh.7"), "\n\\.It Ic (scrim_[a-z]+)"), functions);
  EXPECT_EQ(found(source("man/scrim.sh.7"), "\n\\.Ic (scrim_[a-z]+) (?=Ar|Oo)"), functions);
}

TEST(Pages, EveryExitStatusHasItsEntry) {
  const words statuses = found(source("src/common/program.h"), "\n  exit_[a-z_]+ = ([0-9]+)");
  const std::string page = source("man/scrim.1");
  const std::string section = page.substr(page.find("\n.Sh EXIT STATUS"));
  EXPECT_EQ(found(section, "\n\\.It ([0-9]+)(?=\n)"), statuses);
}

TEST(Pages, AreCleanMdoc) {
  Terminal t;
  t.shell("mandoc -Tlint -Wwarning " SCRIM_SOURCE "/man/*.[157] 2>&1");
  t.expect_exit(0, "");
}

}  // namespace scrim
