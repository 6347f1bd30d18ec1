// term/keys: turns the bytes that a terminal sends into one key at a time.
// A key's first byte is waited for without limit, each byte after it for `ftimeout` tenths of a
// second; no byte behind a recognised sequence is read.
#pragma once

#include "term/key_codes.h"

#include <cstdint>

namespace scrim {

struct skt {
  std::int16_t kcode;  // code of a key; 0 ends the table
  const char* ktext;   // its name
};
extern const skt specialktext[];  // the codes above with their names

// Fields of a mouse report.
enum { mouse_button, mouse_column, mouse_row, mouse_fields };
extern int mouse_down[mouse_fields];  // last press: button field, column, row (cells from 0)
extern int mouse_up[mouse_fields];    // last release, the same

// Reads the next key into `key`. Blocks until there is one. Returns false when the terminal is
// gone: end of input, or a read that fails.
bool read_key(std::int16_t& key);

// The next key. A terminal that is gone ends the program through win_exit with status 4.
std::int16_t get_key();

}  // namespace scrim
