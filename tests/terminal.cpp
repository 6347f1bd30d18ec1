// tests/terminal: the expectations are conditions on the emulator's screen, polled.
// SCRIM_BINARY and SCRIM_CHECK_BINARY name the programs, SCRIM_TERMINFO the directory of the tests'
// own terminals, SCRIM_PATIENCE a time.

#include "tests/terminal.h"

#include "tools/emulator/key_names.h"
#include "tools/emulator/picture.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include <gtest/gtest.h>

namespace scrim {

static constexpr int patience = SCRIM_PATIENCE;  // ms for an expectation to come true
static constexpr int hurry = 200;                // the same in a test that has failed already
static constexpr int quiet = 20;                 // ms without output that make a pause

static std::string without_trailing_blanks(std::string_view text) {
  return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

static std::string place(int row, int column) {
  return "row " + std::to_string(row) + ", column " + std::to_string(column);
}

std::string times(int n, const std::string& keys) { return n ? keys + times(n - 1, keys) : ""; }

std::string program(const std::string& name) {
  if (const char* directory = getenv("SCRIM_PROGRAMS")) return directory + ("/" + name);
  return name == "scrim" ? SCRIM_BINARY : SCRIM_CHECK_BINARY;
}

static std::string report(const std::string& button, int column, int row) {
  return "<Esc>>" + button + ";" + std::to_string(column) + ";" + std::to_string(row) + "X";
}

std::string press(int column, int row) { return report("2", column, row); }
std::string release(int column, int row) { return report("3", column, row); }
std::string click(int column, int row) { return press(column, row) + release(column, row); }

Terminal::Terminal(const emulator_setup& setup) : emulator(setup) {
  std::string name = std::filesystem::temp_directory_path() / "scrim-test-XXXXXX";
  if (!mkdtemp(name.data())) ADD_FAILURE() << "no temporary directory " << name;
  directory_ = name;
  if (emulator.setup.directory.empty()) emulator.setup.directory = name;
  const char* path = getenv("PATH");
  const std::string own = std::filesystem::path(program("scrim")).parent_path();
  env("PATH", own + ":" + (path ? path : "/usr/bin:/bin"));
  setenv("TERMINFO_DIRS", SCRIM_TERMINFO ":", 1);  // for the program and for the names of keys
}

Terminal::~Terminal() {
  std::error_code ignored;
  std::filesystem::remove_all(directory_, ignored);
}

void Terminal::file(const std::string& name, std::string_view content) {
  std::ofstream(path(name), std::ios::binary) << content;
}

void Terminal::run(std::vector<std::string> arguments, test_line where) {
  arguments.insert(arguments.begin(), program("scrim"));
  command(arguments, where);
}

void Terminal::command(const std::vector<std::string>& arguments, test_line where) {
  if (!emulator.start(arguments)) ADD_FAILURE_AT(where.file, where.line) << "no process";
  emulator.await_key(quiet, patience);
}

void Terminal::shell(const std::string& line, test_line where) {
  command({"/bin/sh", "-c", line}, where);
}

void Terminal::form(std::string_view content, test_line where) {
  file("form", content);
  run({"-f", "form"}, where);
}

std::string Terminal::bytes(const std::string& keys, test_line where) const {
  std::string all;
  for (const std::string& piece : pieces_of(keys)) {
    const typed_bytes typed = bytes_of(piece, emulator.setup.term);
    if (!typed.fault.empty()) ADD_FAILURE_AT(where.file, where.line) << typed.fault;
    all += typed.bytes;
  }
  return all;
}

void Terminal::type(const std::string& keys, test_line where) { type_bytes(bytes(keys, where)); }

void Terminal::type_bytes(std::string_view bytes) {
  emulator.send(bytes);
  emulator.settle(quiet, patience);
}

void Terminal::expect(const std::string& wanted, const std::function<std::string()>& found,
                      test_line where) {
  const std::int64_t deadline = milliseconds() + (testing::Test::HasFailure() ? hurry : patience);
  while (found() != wanted) {
    if (emulator.ended() || milliseconds() >= deadline) {
      ADD_FAILURE_AT(where.file, where.line)
          << "expected\n" + wanted + "\nfound\n" + found() + "\non the screen\n" + screen();
      return;
    }
    emulator.pump(quiet);
  }
}

void Terminal::expect_row(int row, std::string_view text, test_line where) {
  expect(
      without_trailing_blanks(text), [&] { return emulator.text(row); }, where);
}

void Terminal::expect_screen(int row, std::string_view picture, test_line where) {
  std::istringstream lines(std::string(picture.substr(picture.starts_with('\n'))));
  std::string wanted;
  int end = row;
  for (std::string line; std::getline(lines, line); end++)
    wanted += without_trailing_blanks(line) + "\n";
  auto found = [&] {
    std::string rows;
    for (int i = row; i < end; i++) rows += emulator.text(i) + "\n";
    return rows;
  };
  expect(wanted, found, where);
}

void Terminal::expect_text(int row, int column, std::string_view text, test_line where) {
  auto found = [&] {
    std::string rest = emulator.text(row, column);
    rest.resize(std::max(rest.size(), text.size()), ' ');
    return rest.substr(0, text.size());
  };
  expect(std::string(text), found, where);
}

void Terminal::expect_shown(std::string_view text, test_line where) {
  auto found = [&] { return screen().find(text) == std::string::npos ? "" : std::string(text); };
  expect(std::string(text), found, where);
}

void Terminal::expect_reverse(int row, int column, int width, test_line where) {
  auto described = [row](int start, int cells) {
    return std::to_string(cells) + " cells in reverse from " + place(row, start);
  };
  auto found = [&] {
    int start = column, end = column;
    while (emulator.cell(row, end).reverse) end++;
    while (end > column && emulator.cell(row, start - 1).reverse) start--;
    return described(start, end - start);
  };
  expect(described(column, width), found, where);
}

void Terminal::expect_cursor(int row, int column, test_line where) {
  auto found = [&] { return place(emulator.cursor().row, emulator.cursor().col); };
  expect(place(row, column), found, where);
}

void Terminal::expect_exit(int status, std::string_view output, test_line where) {
  auto described = [](int code, std::string_view bytes, bool kept) {
    return "status " + std::to_string(code) + (kept ? "" : ", other line settings") +
           ", output:\n" + std::string(bytes);
  };
  auto found = [&] {
    if (!emulator.ended()) return std::string("a program that still runs");
    return described(emulator.status(), emulator.output(), emulator.settings_kept());
  };
  expect(described(status, output, true), found, where);
}

const std::string& Terminal::expect_end(int status, test_line where) {
  const std::int64_t deadline = milliseconds() + patience;
  while (!emulator.ended() && milliseconds() < deadline) emulator.pump(quiet);
  expect_exit(status, emulator.output(), where);
  return emulator.output();
}

std::string Terminal::path(const std::string& name) const {
  return std::filesystem::path(directory_) / name;
}

std::string Terminal::read(const std::string& name) const {
  std::ifstream stream(path(name), std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::string Terminal::screen() const { return text_picture(emulator); }

}  // namespace scrim
