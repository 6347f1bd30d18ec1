// common/text: scratch buffers, the bounded copy and the number reader that every room uses.
// Nothing here writes past an array, whatever it is given.

#include "common/text.h"

#include <cstdlib>

namespace scrim {

char cbuf[scratch_size];
char tbuf[scratch_size];
char lbuf[scratch_size];
char** largv = nullptr;
const char* progname = "scrim";

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
