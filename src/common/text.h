// common/text: the bounded copy, letters, what a terminal may be sent, and the number reader.
// Nothing here writes past an array, whatever it is given.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>

namespace scrim {

constexpr int coordinate_limit = 32767;  // columns, rows and sizes from outside stay within +-this

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

// Reads decimal integers with one separator after each but the last: "1,2,8/30" with ",,/" gives
// four. Writes strlen(separators) + 1 numbers, those missing as 0, each kept within +-limit.
// Returns how many stood there before the first missing one.
int read_numbers(const char* text, const char* separators, int* numbers,
                 int limit = coordinate_limit);

// Reads the decimal integer at the start of `text` into `number` (0 when there is none), kept
// within +-limit. Returns whether there was one.
bool read_number(const char* text, int& number, int limit = coordinate_limit);

}  // namespace scrim
