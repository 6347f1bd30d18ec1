// common/text: the bounded copy, letters, what a terminal may be sent, and the number reader.
// What comes from outside is read as far as it makes sense, and never further.

#include "common/text.h"

#include <cstdlib>

namespace scrim {

static bool is_between(char c, int lowest, int highest) {
  const int byte = static_cast<unsigned char>(c);
  return byte >= lowest && byte <= highest;
}

// The first bytes of a character of UTF-8, the second bytes that may follow them, and how many
// bytes it has. The second byte's limits leave out what has a shorter form, U+0080 to U+009F,
// surrogates, and everything above U+10FFFF.
struct utf8_row {
  int first, last;
  int second_first, second_last;
  std::size_t length;
};
static const utf8_row utf8_rows[] = {
    {0xc2, 0xc2, 0xa0, 0xbf, 2},  //
    {0xc3, 0xdf, 0x80, 0xbf, 2},  //
    {0xe0, 0xe0, 0xa0, 0xbf, 3},  //
    {0xe1, 0xec, 0x80, 0xbf, 3},  //
    {0xed, 0xed, 0x80, 0x9f, 3},  //
    {0xee, 0xef, 0x80, 0xbf, 3},  //
    {0xf0, 0xf0, 0x90, 0xbf, 4},  //
    {0xf1, 0xf3, 0x80, 0xbf, 4},  //
    {0xf4, 0xf4, 0x80, 0x8f, 4},
};

// The bytes of the UTF-8 character at `s`; 0 when there is none, or not all of it.
static std::size_t utf8_length(const char* s, std::size_t n) {
  for (const utf8_row& row : utf8_rows) {
    if (!is_between(*s, row.first, row.last) || n < row.length) continue;
    if (!is_between(s[1], row.second_first, row.second_last)) return 0;
    auto continues = [](char c) { return is_between(c, 0x80, 0xbf); };
    return std::all_of(s + 2, s + row.length, continues) ? row.length : 0;
  }
  return 0;
}

std::size_t printable_length(const char* s, std::size_t n) {
  if (is_between(*s, ' ', 0x7e) || *s == '\t') return 1;
  if (const std::size_t length = utf8_length(s, n)) return length;
  return is_between(*s, 0xa0, 0xff) ? 1 : 0;
}

int read_numbers(const char* text, const char* separators, int* numbers, int limit) {
  const int wanted = static_cast<int>(std::strlen(separators)) + 1;
  std::fill_n(numbers, wanted, 0);
  for (int i = 0; i < wanted; i++) {
    char* end = nullptr;
    const long number = std::strtol(text, &end, 10);
    if (end == text) return i;
    numbers[i] = static_cast<int>(std::clamp<long>(number, -limit, limit));
    if (i + 1 < wanted && *end != separators[i]) return i + 1;
    text = end + 1;
  }
  return wanted;
}

bool read_number(const char* text, int& number, int limit) {
  return read_numbers(text, "", &number, limit) == 1;
}

}  // namespace scrim
