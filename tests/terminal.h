// tests/terminal: one session of a program in a terminal of its own, as a test reads it.
// Rows and columns count from 0. Every expect_ waits until it holds; after five seconds (more under
// sanitizers, less in a test that has failed already) it fails and shows what was expected and what
// is there.

#pragma once

#include "tools/emulator/emulator.h"

#include <functional>
#include <string>
#include <string_view>
#include <tuple>  // of this and the others around it tables in tests are made
#include <utility>
#include <vector>

namespace scrim {

// The line of the test that called, for its failure message.
struct test_line {
  static constexpr test_line here(const char* file = __builtin_FILE(),
                                  int line = __builtin_LINE()) {
    return {file, line};
  }
  const char* file;
  int line;
};

// Keys for Terminal::type: the same ones n times; a mouse button pressed and released on a cell.
std::string times(int n, const std::string& keys);
std::string press(int column, int row);
std::string release(int column, int row);
std::string click(int column, int row);

// Where scrim or scrim-check under test is: in the directory that the variable SCRIM_PROGRAMS
// names, or in this build.
std::string program(const std::string& name);

class Terminal {
 public:
  // Terminal t({.term = "vt100", .rows = 24}); makes a working directory of its own.
  explicit Terminal(const emulator_setup& setup = {});
  ~Terminal();

  // Before the start.
  void env(const std::string& name, const std::string& value) {
    emulator.setup.environment.push_back(name + "=" + value);
  }
  void file(const std::string& name, std::string_view content);  // into the own directory

  // Start scrim, any command, a shell's line (scrim is found first on their PATH) or a form, and
  // wait until it has ended or waits for a key. Once for each Terminal.
  void run(std::vector<std::string> arguments, test_line where = test_line::here());
  void command(const std::vector<std::string>& arguments, test_line where = test_line::here());
  void shell(const std::string& line, test_line where = test_line::here());
  void form(std::string_view content, test_line where = test_line::here());  // scrim, with one file

  // Types "abc<Left><Del>x<Enter>", all bytes together, and waits until the program has dealt with
  // them. A name types what the terminal's description says of that key; "<lt>" types a "<".
  void type(const std::string& keys, test_line where = test_line::here());
  void type_bytes(std::string_view bytes);  // as they are: what is no key, or not a whole one
  std::string bytes(const std::string& keys, test_line where = test_line::here()) const;

  // Trailing blanks never count, nor does a picture's first line break.
  void expect_row(int row, std::string_view text, test_line where = test_line::here());
  void expect_screen(int row, std::string_view picture, test_line where = test_line::here());
  void expect_text(int row, int column, std::string_view text, test_line where = test_line::here());
  void expect_shown(std::string_view text, test_line where = test_line::here());  // in any row

  // A run of exactly `width` cells in reverse starts at the column; width 0: its cell is not.
  void expect_reverse(int row, int column, int width, test_line where = test_line::here());
  void expect_cursor(int row, int column, test_line where = test_line::here());

  // The end: exit code (or 128 + signal number), all of the collected standard output, and line
  // settings as they were before the start.
  void expect_exit(int status, std::string_view output, test_line where = test_line::here());
  // The same for an output that the test judges by itself: returns it.
  const std::string& expect_end(int status, test_line where = test_line::here());

  std::string read(const std::string& name) const;  // a file of the own directory, "" when absent
  std::string path(const std::string& name) const;  // its full name
  std::string screen() const;                       // all rows but the empty ones at the end
  const std::string& raw() const { return emulator.raw(); }  // every byte that was drawn

  Emulator emulator;

 private:
  void expect(const std::string& wanted, const std::function<std::string()>& found,
              test_line where);

  std::string directory_;
};

}  // namespace scrim
