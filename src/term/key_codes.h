// term/key_codes: the numbers that keys have: what the decoder returns, and what the form's and the
// list's tables ask for.
#pragma once

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

}  // namespace scrim
