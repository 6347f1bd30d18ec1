// What nobody can repair on the spot: lost terminals, rubbish as input, readers that have gone.
// The harness checks after each that the line settings are as before.

#include "tests/terminal.h"

#include <algorithm>
#include <cstdint>
#include <random>

#include <gtest/gtest.h>

namespace scrim {

static const char form[] = "fulls:clear\netext:10,3,20:${V}:A:CHAR\nbutton:_OK:ok\n";

// How long a program that waits for a key lives on without its terminal, in ms.
static std::int64_t time_to_end(const std::string& line) {
  Terminal t;
  t.file("a.scrim", form);
  t.shell(line);
  EXPECT_FALSE(t.emulator.ended()) << line;
  const std::int64_t start = milliseconds();
  t.emulator.hang_up();
  while (!t.emulator.ended() && milliseconds() < start + 2000) t.emulator.pump(5);
  return milliseconds() - start;
}

// Half of them ignore the hang-up, as under nohup: the read that fails has to end those. What a
// busy machine takes is not the program's: the fastest of a few counts.
TEST(Faults, ALostTerminalEndsTheProgramAtOnce) {
  for (const std::string mode : {"-f a.scrim", "-l 5 3 a b", "-e message", "-d"}) {
    for (const std::string trap : {"", "trap '' HUP; "}) {
      std::int64_t fastest = 2000;
      for (int i = 0; i < 3 && fastest >= 200; i++)
        fastest = std::min(fastest, time_to_end(trap + "exec scrim " + mode));
      EXPECT_LT(fastest, 200) << trap << mode;
    }
  }
}

TEST(Faults, KeysFromAFileAndTheirEnd) {
  // What is run, its keys, exit status and output.
  const std::tuple<std::string, std::string, int, const char*> cases[] = {
      {"-f a.scrim <keys", "Ann<LF>", 0, "A=\"Ann\";export A;RETN=default\n"},
      {"-f a.scrim <keys", "Ann<Down><Enter>", 0, "A=\"Ann\";export A;RETN=ok\n"},
      {"-f a.scrim <keys", "Ann", 4, ""},
      {"-f a.scrim <keys", "", 4, ""},
      {"-f a.scrim <.", "", 4, ""},  // a directory cannot be read
      {"-l 5 3 a b <keys", "<Down>", 4, ""},
      {"-e message <keys", "", 0, ""},
      {"-f bad.scrim <keys", "", 2, ""},
  };
  for (const auto& [line, keys, status, output] : cases) {
    SCOPED_TRACE(line + " " + keys);
    Terminal t;
    t.file("a.scrim", form);
    t.file("bad.scrim", "nonsense\n");
    t.file("keys", t.bytes(keys));
    t.shell("exec scrim " + line);
    t.expect_exit(status, output);
  }
}

TEST(Faults, OddTerminals) {
  for (const emulator_setup& setup : {emulator_setup{.rows = 5, .columns = 10},
                                      {.rows = 200, .columns = 500},
                                      {.nonblocking = true}}) {
    SCOPED_TRACE(setup.rows);
    Terminal t(setup);
    t.form(form);
    t.emulator.pump(300);  // longer than the bytes of a key are waited for
    t.type("A");
    t.expect_shown("A");
    t.type("n<Left>n<Esc>");
    t.expect_cursor(setup.rows - 1, 0);
    t.expect_exit(0, "A=\"Ann\";export A;RETN=cancel\n");
  }
}

// A non-blocking terminal takes only a part of what is written while it is busy.
TEST(Faults, NothingOfALongTextIsLost) {
  std::string text;
  for (int i = 0; i < 20'000; i++) text += std::to_string(10'000 + i) + " ";
  Terminal t({.nonblocking = true});
  t.run({"-m", "0,0", text});
  t.expect_exit(0, "");
  EXPECT_NE(t.raw().find(text), std::string::npos);
}

// Loads behind other screens, leaves with Escape or its pop-up's key, and has shown this.
static void load(const std::string& content, int status, const std::string& shown,
                 const std::string& others = "") {
  Terminal t;
  t.file("a.scrim", form);
  t.file("last", content);
  t.run({"-f", others + "last"});
  if (!t.emulator.ended()) t.type("<Esc>");
  t.expect_exit(status, status == 0 && !content.empty() ? "RETN=cancel\n" : "");
  EXPECT_NE(t.raw().find(shown), std::string::npos) << content.substr(0, 100);
}

TEST(Faults, RubbishAndLotsAsScreenFiles) {
  std::mt19937 random(7);
  std::string noise(5000, 0);
  for (char& c : noise) c = static_cast<char>(random());
  load("", 0, "");
  load(std::string(10'000'000, 'x'), 3, "Line too long: xxxxxxxx");
  load("fulls:clear\r\netext:1,1,5:v:A:CHAR:N\r\nbutton:OK:ok:Y\r\n", 0, "(OK)");
  load(std::string("fulls\0\1\n\0\nbutton:A\0B:op\n", 24), 0, "(A)");
  load(noise, 2, "Invalid Command: ");
  std::string entries = "fulls:clear\npoplist:1,1::A";
  while (entries.size() < 515) entries += ":e";
  load(entries.substr(0, 520) + "\nbutton:Q:q\n", 0, "(Q)");
  // Only the first of a thousand screens is painted: what takes its time is the loading.
  std::string thousand, many;
  for (int i = 0; i < 1000; i++) thousand += "a.scrim,";
  for (int i = 0; i < 50'000; i++) many += "etext:1,1,1:::\nxcheckbox:2,300:_:B\n";
  load(many, 0, "K)", thousand);
}

// Memory may end at any place of the loading.
TEST(Faults, MissingMemoryEndsWithItsMessage) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer reserves more memory than any limit allows";
#endif
  const std::tuple<const char*, const char*, int, const char*> cases[] = {
      {"", "etext:1,1,5::V", 3, "Can't allocate memory for gadget list"},
      {"", "#${V", 2, "Can't allocate memory for ENV variable"},
      {"swin:1,1,9,9:data\n", "#", 3, "Can't allocate memory for file data"},
  };
  for (const auto& [start, line, status, message] : cases) {
    std::string content = start;
    for (int i = 0; content.size() < 2'000'000 && i < 40'000; i++)
      content += line + (*line == '#' ? std::to_string(i) + "}\n" : std::string(40, ':') + "\n");
    for (int limit = 8000; limit < 8600; limit += 75) {
      SCOPED_TRACE(message + std::string(" of ") + std::to_string(limit));
      Terminal t;
      t.file("s", content);
      t.file("data", std::string(8'000'000, '.'));
      t.shell("ulimit -v " + std::to_string(limit) + "; exec scrim -f s");
      t.expect_shown(message);
      t.expect_text(10, 10, "┌──");  // in the pop-up
      t.type("x");
      t.expect_exit(status, "");
    }
  }
}

// A file that grows as fast as it is read.
TEST(Faults, AFileThatIsWrittenToDoesNotHoldUpTheForm) {
  Terminal t;
  t.file("log", std::string(3'000'000, '\n'));
  t.file("s", "fulls:clear\nswin:1,1,20,6:log:V\n");
  t.shell("head -c 400M /dev/zero | tr '\\0' '\\n' >>log & exec scrim -f s");
  t.expect_text(1, 1, "┌──────────────────┐");
  t.type("<Esc>");
  t.expect_exit(0, "RETN=cancel\n");
}

// More than a pipe or a buffer holds, so that the writing itself fails.
TEST(Faults, ResultsThatNobodyTakes) {
  std::string many = "fulls:clear\n";
  for (int i = 0; i < 2000; i++) many += "xcheckbox:5,5:_:V" + std::to_string(i) + "\n";
  for (const char* line :
       {"-f a.scrim | true", "-f a.scrim >/dev/full", "-A/dev/full -f a.scrim"}) {
    SCOPED_TRACE(line);
    Terminal t;
    t.file("a.scrim", many);
    t.shell("scrim " + std::string(line));
    t.type(" ");
    t.type("<Esc>");
    t.expect_end(0);
  }
}

}  // namespace scrim
