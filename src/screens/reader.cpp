// screens/reader: the screen file being read, its lines, the items of a line, and why a line cannot
// be taken.
// A line that is too long is refused, never cut in two: its rest would be read as a directive.

#include "screens/reader.h"

#include "common/program.h"
#include "values/values.h"

#include <cstddef>
#include <cstring>
#include <initializer_list>

#include <sys/stat.h>

namespace scrim {

static const int line_limit = 509;    // characters of a line before its newline
static const int shown_of_line = 40;  // of those, what the complaint about a longer one shows

FILE* sfp = nullptr;
int line_number = 0;
refusal refused;

static bool inside_line = false;  // the line read last was too long, and its rest is still to come

void refuse(int status, std::initializer_list<std::string_view> parts) {
  std::size_t n = 0;
  for (const std::string_view part : parts)
    n += part.copy(refused.message + n, sizeof refused.message - 1 - n);
  refused.message[n] = 0;
  refused.status = status;
}

static FILE* open_for_reading(const char* path) {
  if (std::strcmp(path, "stdin") == 0) return stdin;
  FILE* file = fopen(path, "r");
  struct stat about;
  if (file && fstat(fileno(file), &about) == 0 && S_ISDIR(about.st_mode)) {
    fclose(file);
    return nullptr;
  }
  return file;
}

bool open_screen_file(const char* path) {
  sfp = open_for_reading(path);
  line_number = 0;
  inside_line = false;
  return sfp != nullptr;
}

// The next character of the file; a carriage return and a newline are one newline.
static int next_character() {
  const int c = getc_unlocked(sfp);
  if (c != '\r') return c;
  const int after = getc_unlocked(sfp);
  if (after == '\n') return after;
  ungetc(after, sfp);
  return c;
}

static void skip_rest() {
  for (int c = 0; c != EOF && c != '\n'; c = next_character()) continue;
  inside_line = false;
}

bool next_line() {
  if (inside_line) skip_rest();
  int n = 0;
  int c = next_character();
  if (c == EOF) return false;
  line_number++;
  for (; c != EOF && c != '\n'; c = next_character()) {
    cbuf[n] = static_cast<char>(c);
    cbuf[++n] = 0;
    if (n <= line_limit) continue;
    inside_line = true;
    refuse(exit_screen, {"Line too long: ", std::string_view(cbuf, shown_of_line)});
    return false;
  }
  cbuf[n] = 0;
  return true;
}

bool next_block_line() {
  if (!next_line() || std::string_view(cbuf).starts_with("endtext:")) return false;
  env_substitute(cbuf);
  return true;
}

const char* first_item(const char* line) {
  const char* colon = std::strchr(line, ':');
  return colon ? colon + 1 : nullptr;
}

std::string_view next_item(const char*& at) {
  if (!at) return {};
  const std::string_view item(at, std::strcspn(at, ":"));
  at = at[item.size()] ? at + item.size() + 1 : nullptr;
  return item;
}

std::size_t word_length(std::string_view text) {
  std::size_t n = 0;
  while (n < text.size() && text[n] > ' ' && text[n] < 0x7f) n++;
  return n;
}

}  // namespace scrim
