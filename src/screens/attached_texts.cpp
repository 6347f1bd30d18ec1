// screens/attached_texts: the two blocks of text that checking a checkbox paints.
// A block is read once into a growing buffer, since standard input cannot be read twice.

#include "common/program.h"
#include "screens/directives.h"
#include "screens/model.h"
#include "screens/reader.h"
#include "term/endings.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>

namespace scrim {

static const char no_memory[] = "Can't allocate memory for save text";

// A record with room for `room` bytes of text; the old one's contents move into it.
static save_text* resize(save_text* record, std::size_t room) {
  void* memory = realloc(record, offsetof(save_text, text) + room);
  if (!memory) end_with(no_memory, exit_screen);
  return static_cast<save_text*>(memory);
}

save_text* f_text_core(save_text* txt) {
  if (txt) {
    refuse(exit_screen, {"Screen file syntax error - multiple text"});
    return txt;
  }
  int position[most_numbers];
  const char* at = nullptr;
  first_numbers(at, position);

  std::size_t room = scratch_size;
  std::size_t length = 0;
  save_text* record = resize(nullptr, room);
  while (next_block_line()) {
    const std::size_t n = std::strlen(tbuf);
    if (length + n + 2 > room) record = resize(record, room *= 2);
    // A newline inside a value begins no line of the block: it shows as any control character does.
    std::replace(tbuf, tbuf + n, '\n', '\r');
    std::memcpy(record->text + length, tbuf, n);
    length += n;
    record->text[length++] = '\n';
  }
  if (refused.status != 0) {
    free(record);
    return nullptr;
  }
  record->text[length] = 0;
  record->x = s_screen[curscreen].windx + position[0];
  record->y = s_screen[curscreen].windy + position[1];
  return record;
}

int f_atext() {
  atext = f_text_core(atext);
  return 0;
}

int f_btext() {
  btext = f_text_core(btext);
  return 0;
}

}  // namespace scrim
