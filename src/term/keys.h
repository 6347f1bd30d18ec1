// term/keys: turns the bytes that a terminal sends into one key at a time.
// A key's first byte is waited for without limit, each byte after it for `ftimeout` tenths of a
// second; no byte behind a recognised sequence is read.
#pragma once

#include <cstdint>

namespace scrim {

// Codes of the keys that are more than one byte; a plain byte is its value as a signed char.
enum {
  XKEY_UP = 256,
  XKEY_DOWN,
  XKEY_LEFT,
  XKEY_RIGHT,
  XKEY_DELETE,
  XKEY_BACKSPACE,
  XKEY_NEXT,
  XKEY_PREV,
  XKEY_MOUSE,  // a mouse button was released: mouse_up
  XKEY_NULL,   // nothing to act on: a mouse button was pressed (mouse_down), or the first function
               // key slot
  XKEY_F1,
  XKEY_F2,
  XKEY_F3,
  XKEY_F4  // and every function key above
};

// Plain keys that have a meaning of their own.
enum {
  key_ctrl_b = 2,
  key_ctrl_d = 4,
  key_tab = 9,
  key_line_feed = 10,
  key_ctrl_l = 12,
  key_return = 13,
  key_ctrl_n = 14,
  key_ctrl_r = 18,
  key_ctrl_u = 21,
  key_ctrl_x = 24,
  key_escape = 27,
  key_del = 127
};

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
