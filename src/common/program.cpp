// common/program: what the whole program shares, and the lines that it writes outside of the
// screen. A line may hold names that come from outside: they cannot drive the terminal.

#include "common/program.h"

#include "common/text.h"

#include <algorithm>

namespace scrim {

char cbuf[scratch_size];
char tbuf[scratch_size];
char lbuf[scratch_size];
char** largv = nullptr;
const char* progname = "scrim";

const char* version() { return SCRIM_VERSION; }

static void write_printable(FILE* to, std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = printable_length(text.data(), text.size());
    if (length == 0) {
      putc('?', to);
    } else {
      fwrite(text.data(), 1, length, to);
    }
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
}

void print(FILE* to, std::initializer_list<std::string_view> parts) {
  for (const std::string_view part : parts) write_printable(to, part);
  putc('\n', to);
}

void complain(std::initializer_list<std::string_view> parts) { print(stderr, parts); }

}  // namespace scrim
