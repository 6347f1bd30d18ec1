// common/text: scratch buffers, the bounded copy and the number reader that every room uses.
// A scratch buffer holds its contents only until its next user: copy out what must last.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <initializer_list>
#include <string_view>

namespace scrim {

constexpr std::size_t scratch_size = 1024;  // bytes of a scratch buffer, its NUL included
constexpr int coordinate_limit = 32767;  // columns, rows and sizes from outside stay within +-this

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

extern char cbuf[scratch_size];  // the current screen-file line; the driver's result line; bars
extern char tbuf[scratch_size];  // substituted text, formatted messages and output lines
extern char lbuf[scratch_size];  // a button's label while it is built

extern char** largv;          // column, row and entries of the next pick list, then null; or null
extern const char* progname;  // the program's name as it was called, for messages

// Copies `from` into `to`, cut to what fits; always ends it with a NUL. `from` may lie within `to`.
template <std::size_t size>
void copy_text(char (&to)[size], std::string_view from) {
  const std::size_t n = std::min(from.size(), size - 1);
  if (n > 0) std::memmove(to, from.data(), n);
  to[n] = 0;
}

// Whether a key is a letter of ASCII; only those have two cases.
constexpr bool is_letter(int key) {
  return (key >= 'a' && key <= 'z') || (key >= 'A' && key <= 'Z');
}

// A letter in the other case; any other key as it is.
constexpr int upper_case(int key) { return key >= 'a' && key <= 'z' ? key - 'a' + 'A' : key; }
constexpr int lower_case(int key) { return key >= 'A' && key <= 'Z' ? key - 'A' + 'a' : key; }

// How many bytes at `s`, of the n there, are to go to a terminal as they are: 1 for a character of
// ASCII, 2 to 4 for a whole UTF-8 character from U+00A0 on, 1 for any other byte from 0xA0 on; 0
// for a control character, which is shown as "?". Those are 0x00 to 0x1F but for the TAB, 0x7F, and
// 0x80 to 0x9F, which to a terminal with 8-bit characters are what an escape and a letter are to
// others.
std::size_t printable_length(const char* s, std::size_t n);

// Writes a line: the parts, each control character of them as "?", and a newline. Texts from
// outside may stand among the parts.
void print(FILE* to, std::initializer_list<std::string_view> parts);

// Writes a line to standard error, likewise.
void complain(std::initializer_list<std::string_view> parts);

// Reads decimal integers with one separator after each but the last: "1,2,8/30" with ",,/" gives
// four. Writes strlen(separators) + 1 numbers, those missing as 0, each kept within +-limit.
// Returns how many stood there before the first missing one.
int read_numbers(const char* text, const char* separators, int* numbers,
                 int limit = coordinate_limit);

// Reads the decimal integer at the start of `text` into `number` (0 when there is none), kept
// within +-limit. Returns whether there was one.
bool read_number(const char* text, int& number, int limit = coordinate_limit);

}  // namespace scrim
