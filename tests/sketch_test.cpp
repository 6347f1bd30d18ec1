// scrim-sketch: drawings become screen files, screen files become drawings, and what is lost on the
// way there and back is nothing that can be seen.

#include "tests/terminal.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <random>
#include <sstream>

#include <gtest/gtest.h>

namespace scrim {

// What a shell's line prints in the directory, on standard output and the terminal; scrim and its
// companions are on PATH.
static std::string printed(const std::string& directory, const std::string& line) {
  Terminal t;
  t.emulator.setup.directory = directory;
  t.emulator.start({"sh", "-c", "exec 2>&1; PATH=$PATH:" SCRIM_TOOLS "; " + line});
  for (int i = 0; !t.emulator.ended() && i < 2000; i++) t.emulator.pump(10);
  return t.emulator.output() + (t.emulator.status() == 0 ? "" : "?");
}

// What a form shows and answers to these keys: all cells, the results and the exit status.
static std::string played(const std::string& directory, const std::string& screen,
                          const std::string& keys) {
  Terminal t;
  t.file("keys", keys);
  t.emulator.setup.directory = directory;
  t.emulator.start({"sh", "-c", "exec scrim -f '" + screen + "' <" + t.path("keys")});
  for (int i = 0; !t.emulator.ended() && i < 2000; i++) t.emulator.pump(10);
  std::string seen = t.emulator.output() + std::to_string(t.emulator.status()) + "\n";
  for (int row = 0; row < 24; row++)
    for (int column = 0; column < 80; column++) {
      const screen_cell cell = t.emulator.cell(row, column);
      append_utf8(seen, cell.code);
      seen += cell.reverse ? "r" : cell.underline ? "u" : "";
      if (column == 79) seen += '\n';
    }
  return seen;
}

// The lines in which two texts differ.
static std::string difference(std::string a, std::string b) {
  std::istringstream one(a), two(b);
  std::string lines;
  while (std::getline(one, a) && std::getline(two, b))
    if (a != b) lines += "\n-" + a + "\n+" + b;
  return lines;
}

static void expect_same(const std::string& directory, const std::string& screen,
                        const std::string& other, const std::string& keys) {
  const std::string one = played(directory, screen, keys), two = played(directory, other, keys);
  ASSERT_TRUE(one == two) << difference(one, two);
}

class RandomForm {
 public:
  explicit RandomForm(unsigned seed) : random_(seed) {}

  // A screen without gadgets over one another, its lines in any order.
  std::string screen() {
    const bool full = below(2) == 0;
    width_ = full ? 79 : 20 + below(58);
    height_ = full ? 23 : 6 + below(17);
    const std::string size = std::to_string(width_) + "," + std::to_string(height_);
    std::string text = full ? one_of({"fulls", "fulls:clear", "fulls:overlay"})
                            : "pop:" + size + one_of({"", ":clear"});
    text += "\nname:s\ntitle:" + one_of({"", "Title", " A title ", "-x-", "é"}) + "\n";
    std::string block = "text:\n";
    for (row_ = 1; row_ < height_ - 1; row_++) {
      std::string line;
      if (below(9) == 0 && row_ + 5 < height_) {
        block += row_ > 1 ? "\n\n\n\n" : "\n\n\n";
        rectangle();
      } else if (below(2) == 0) {
        fill_row(line);
      }
      if (row_ > 1) block += line + "\n";
    }
    if (below(3) == 0) gadgets_.push_back("bdefault:" + action());
    if (below(3) != 0) std::shuffle(gadgets_.begin(), gadgets_.end(), random_);
    const int place = mixed_ ? 0 : below(static_cast<int>(gadgets_.size()) + 1);
    gadgets_.insert(gadgets_.begin() + place, block + "endtext:");
    for (const std::string& line : gadgets_) text += line + "\n";
    return text;
  }

  std::string keys() {
    std::string typed;
    for (int n = below(4) == 0 ? 0 : below(30); n > 0; n--)
      typed += one_of({"\x1bOA", "\x1bOB", "\x1bOC", "\x1bOD", "\x1bOR", "\t", "\r", "\r", " ", "a",
                       "Z", "1", "\x7f", "\x1b[6~", "x", "s"});
    return typed + one_of({"", "\n", "\x18"});
  }

 private:
  int below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }

  std::string one_of(const std::vector<std::string>& all) {
    return all[static_cast<std::size_t>(below(static_cast<int>(all.size())))];
  }

  std::string action() { return one_of({"ok", "save:Y", "cancel", "x:Y", "Cancel", "^s"}); }
  std::string variable() { return one_of({"A", "NAME_", "LONG_NAME_OF_", "v"}) + count(); }
  std::string count() { return std::to_string(gadgets_.size()); }
  std::string value() {
    return one_of({"", "", "abc", "${HOME}", "a, b", "\\\\p", "\"q\"", " x ", "a\\\\b", "\\xy"});
  }

  // A frame over five rows, which stay empty.
  void rectangle() {
    const std::string place = std::to_string(1 + below(5)) + "," + std::to_string(row_) + "," +
                              std::to_string(7 + below(width_ - 14)) + ",4";
    gadgets_.push_back(below(2) == 0 ? "box:" + place
                                     : one_of({"", "swdefer\n"}) + one_of({"", "d"}) +
                                           "swin:" + place + ":data:" + variable() +
                                           one_of({"", "\nswhigh:cursor", "\nswpos:3,1"}));
    row_ += 4;
  }

  void fill_row(std::string& line) {
    const int kind = below(6);  // of all, where texts and gadgets have rows of their own
    for (int x = 2 + below(6); x + 16 < width_; x += 2 + below(4)) {
      const std::string mark = below(6) == 0 ? "d" : "";
      const std::string at = std::to_string(x) + "," + std::to_string(row_);
      switch (mixed_ ? below(6) : kind) {
        case 0:
          gadgets_.push_back(mark + "pbutton:" + at + ":" +
                             one_of({"_Ok", "<_No", "Plain", "a_b_c", " Bla_nk"}) + ":" + action());
          x += 9;
          break;
        case 1: {
          const int w = 1 + below(std::min(width_ - x - 3, 30));
          gadgets_.push_back(mark + "etext:" + at + "," + std::to_string(w) +
                             one_of({"", "/19", "/60"}) + ":" + value() + ":" + variable() + ":" +
                             one_of({"", "CHAR", "DATE", "NUMBER"}) + ":" + one_of({"", "N"}));
          x += w + 1;
          break;
        }
        case 2:
          gadgets_.push_back(mark + one_of({"", "x"}) + "checkbox:" + at + ":" +
                             one_of({"X", "_", ""}) + ":" + variable());
          x += 2;
          break;
        case 3:
          if (x + 24 >= width_) break;
          gadgets_.push_back("poplist:" + at + "::L" + count() + ":" +
                             one_of({"Open:Closed", "one, two:b c:d", "x:y:z: w"}));
          x += 17;
          break;
        default:
          if (x < 4) break;
          line.resize(static_cast<std::size_t>(x - 4), ' ');
          line += one_of({"Name", "a [b]", "(X) x", "<_y", "+-", "| ${HOME}", "a:b", "né", "x  y"});
          x = 4 + static_cast<int>(line.size());
          break;
      }
    }
  }

  std::mt19937 random_;
  int width_ = 0, height_ = 0, row_ = 0;
  bool mixed_ = below(3) != 0;  // texts, painted first, and gadgets in one row
  std::vector<std::string> gadgets_;
};

// Half of the forms; two processes share them.
static void check_forms(int first) {
  const char* wanted = getenv("SCRIM_FORMS");
  Terminal t;
  t.file("data", "one\ntwo\nthree\nfour\nfive\n");
  for (int seed = first; seed < (wanted ? atoi(wanted) : 50); seed += 2) {
    RandomForm form(static_cast<unsigned>(seed));
    t.file("form", form.screen());
    SCOPED_TRACE("form " + std::to_string(seed) + "\n" + t.read("form"));
    const std::string redraw = "scrim-sketch -r form >sketch && scrim-sketch sketch >again";
    ASSERT_EQ(printed(t.path(""), redraw), "");
    ASSERT_NO_FATAL_FAILURE(expect_same(t.path(""), "form", "again", form.keys()));
  }
}

TEST(Sketch, RandomFormsStayTheSame) { check_forms(0); }
TEST(Sketch, OtherRandomFormsStayTheSame) { check_forms(1); }

// Every screen of the examples has its drawing, and those that are drawn are made of it.
TEST(Sketch, ExamplesAreAsDrawn) {
  int count = 0;
  Terminal t;
  for (const auto& it : std::filesystem::recursive_directory_iterator(SCRIM_SOURCE "/examples")) {
    if (it.path().extension() != ".scrim") continue;
    SCOPED_TRACE(it.path().string());
    const std::string directory = it.path().parent_path(), name = it.path().stem();
    const std::string made = printed(directory, "scrim-sketch " + name + ".sketch");
    t.file("made", made);
    const std::string kept = t.read(it.path());
    EXPECT_EQ(made, kept.starts_with("# Drawn in") ? kept : made);
    expect_same(directory, name + ".scrim", t.path("made"), "a\tb\r c\r\x1b[6~\r\r\n");
    count++;
  }
  EXPECT_GT(count, 15);
}

// Each drawing gives the screen file, or the mistakes, that stand beside it; and scrim-check has
// nothing to say of the screen file.
TEST(Sketch, DrawingsGiveScreensOrMistakes) {
  const std::string directory = SCRIM_SOURCE "/tests/sketch";
  int count = 0;
  for (const auto& it : std::filesystem::directory_iterator(directory)) {
    if (it.path().extension() != ".sketch") continue;
    const std::string name = it.path().stem();
    SCOPED_TRACE(name);
    Terminal t;
    const std::string made = printed(directory, "scrim-sketch " + name + ".sketch");
    EXPECT_EQ(made, t.read(directory + "/" + name + ".expected"));
    t.file("form", made);
    t.file("log.txt", "");
    const std::string check = made.ends_with('?') ? "" : printed(t.path(""), "scrim-check -W form");
    EXPECT_EQ(check, "");
    count++;
  }
  EXPECT_GE(count, 3);
}

TEST(Sketch, FormIsShownAtOnce) {
  Terminal t;
  t.file("a.sketch", "+-- A --+\n|       |\n|       |\n|  [N ] |\n|  (_OK)|\n+-------+\n");
  t.shell("PATH=$PATH:" SCRIM_TOOLS "; scrim-sketch -f a.sketch");
  t.expect_shown("[  ]");
  t.type("x<Enter><Enter>");
  t.expect_exit(0, "N=\"x\";export N;RETN=ok\n");
}

// What a database says of a table becomes a drawing, and that a screen file without fault or note.
TEST(Sketch, TablesBecomeForms) {
  std::string wide = "CREATE TEMP TABLE w (c0 int";
  for (int i = 1; i < 36; i++) wide += ", c" + std::to_string(i) + " int";
  const std::string tables[][2] = {
      // description; status, message, title, eight fields from the last
      {R"(CREATE TABLE IF NOT EXISTS main."order lines" ([id] INTEGER, -- a key, counted
          `2nd name` TEXT DEFAULT 'it''s, (a) name' NOT NULL /* , no INT */, sum AS (x + 1),
          priceEUR DECIMAL(6,2) CHECK (priceEUR IS NOT NULL), x CHAR, path BOOLEAN DEFAULT (1),
          paid DATETIME NOT NULL DEFAULT CURRENT_TIMESTAMP, far_too_long_for_a_variable REFERENCES
          o ON DELETE SET DEFAULT, far_too_long_for_a_name, n INT NOT NULL DEFAULT -1,
          PRIMARY KEY (id AUTOINCREMENT), CONSTRAINT c UNIQUE (x)); CREATE INDEX i ON t (x);)",
       "0\ntitle: Order lines \netext:34,17,11:-1:N:NUMBER:N\n"
       "etext:34,15,42/79::FAR_TOO_LONG_FOR_A2:VARCHAR2\n"
       "etext:34,13,42/79::FAR_TOO_LONG_FOR_A:VARCHAR2\netext:34,11,19::PAID:DATE\n"
       "etext:34,9,5::PATH2:CHAR\netext:34,7,2/1::X:CHAR\netext:34,5,8::PRICEEUR:NUMBER\n"
       "detext:34,3,42/79:it's, (a) name:COLUMN2ND_NAME:VARCHAR2:N\n"},
      {"create table a (k integer, b, primary key (k)) without rowid; create table c (d);",
       "1\ntable:1:63: one more table: the sketch is of the first one alone\n"
       "title: A \netext:8,5,68/79::B:VARCHAR2\ndetext:8,3,11::K:NUMBER:N\n"},
      {R"(                     Table "public.customers"
 Column |         Type                   | Collation | Nullable |      Default
--------+--------------------------------+-----------+----------+-------------------
 id     | integer                        |           | not null | nextval('s'::regclass)
 twice  | integer                        |           |          | generated always as (2) stored
 a|b    | character varying(60)          | C         | not null | 'x'::text
 text   | text                           |           | not null | 'x                +
        |                                |           |          | y'::text
 since  | timestamp(3) without time zone |           | not null | )",
       "0\ntitle: Customers \netext:12,7,19::SINCE:DATE:N\netext:12,5,64/79::TEXT:VARCHAR2\n"
       "detext:12,3,60:x:A_B:VARCHAR2:N\n"},
      {R"( Tabelle »public.märkte«
┌────────┬───────────────┬───────────────┬───────────────┬─────────────┐
│ Spalte │      Typ      │ Sortierfolge  │ NULL erlaubt? │ Vorgabewert │
├────────┼───────────────┼───────────────┼───────────────┼─────────────┤
│ größe  │ numeric(10,2) │               │ not null      │             │
└────────┴───────────────┴───────────────┴───────────────┴─────────────┘)",
       "0\ntitle: Märkte \ndetext:14,3,12::GR_E:NUMBER:N\n"},
      {"create table k (id integer primary key)",
       "1\ntable:1:1: the table has no column that is entered\n"},
      {"create table k (a text", "1\ntable:1:19: the table has no end: a ')' is missing\n"},
      {" List of relations\n Schema\n--------+---+---+---+----\n",
       "1\ntable:1:1: no table: this reads what sqlite3 prints for '.schema TABLE', or psql for "
       "'\\d TABLE'\n"},
      {wide + ");",
       "1\ntable:1:318: no room from this column on: the last lines of the sketch name 2 of 36 "
       "columns\ntitle: W \netext:48,18,11::C33:NUMBER\netext:10,18,11::C32:NUMBER\n"
       "etext:48,17,11::C31:NUMBER\netext:10,17,11::C30:NUMBER\netext:48,16,11::C29:NUMBER\n"
       "etext:10,16,11::C28:NUMBER\netext:48,15,11::C27:NUMBER\netext:10,15,11::C26:NUMBER\n"},
  };
  for (const auto& [description, made] : tables) {
    Terminal t;
    t.file("table", description);
    const std::string form =
        "scrim-sketch drawn >form && scrim-check -W form && grep ^title form && "
        "grep etext form | head -n 8";
    EXPECT_EQ(printed(t.path(""),
                      "scrim-sketch -t table >drawn 2>said; echo $?; sed -n 1p said; "
                      "[ ! -s drawn ] || { " +
                          form + "; }"),
              made)
        << t.read("drawn");
  }
}

}  // namespace scrim
