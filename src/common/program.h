// common/program: what the whole program shares: its exit statuses, its name, the words of a list,
// the scratch buffers, and the lines that it writes to people outside of the screen. A scratch
// buffer holds its contents only until its next user: copy out what must last.
#pragma once

#include <cstddef>
#include <cstdio>
#include <initializer_list>
#include <string_view>

namespace scrim {

// Exit statuses. A caller's script tells them apart, so they never change.
enum {
  exit_normal = 0,
  exit_usage = 1,             // a wrong call, or a screen file that cannot be opened
  exit_directive = 2,         // unknown directive, pop-list error, no memory for a value
  exit_screen = 3,            // any other fatal error of screen files, memory or switching
  exit_keys_ended = 4,        // the terminal is gone, or the file of keys has ended
  exit_no_terminal = 5,       // there is no terminal to open
  exit_unknown_terminal = 6,  // its type is unknown
  exit_file = 253             // output or defaults file, or the list of screen files
};

constexpr int layout_columns = 80;  // the screen that windows and bars are centred on
constexpr int layout_rows = 24;

constexpr std::size_t scratch_size = 1024;  // bytes of a scratch buffer, its NUL included

extern char cbuf[scratch_size];  // the current screen-file line; the driver's result line; bars
extern char tbuf[scratch_size];  // substituted text, formatted messages and output lines
extern char lbuf[scratch_size];  // a button's label while it is built

extern char** largv;          // column, row and entries of the next pick list, then null; or null
extern const char* progname;  // the program's name as it was called, for messages

// The program's version, "2.4".
const char* version();

// Writes a line: the parts, each control character of them as "?", and a newline. Texts from
// outside may stand among the parts.
void print(FILE* to, std::initializer_list<std::string_view> parts);

// Writes a line to standard error, likewise.
void complain(std::initializer_list<std::string_view> parts);

}  // namespace scrim
