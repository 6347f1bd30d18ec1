// term/drawing: the routines that draw. Capability strings and text go to the terminal in program
// order; columns (x) and rows (y) are screen cells counted from 0.
#pragma once

namespace scrim {

// Attribute word of `stand`; the values equal the matching gadget flags, so a caller may pass a
// gadget's flag word, masked.
enum {
  ATT_STANDOUT = 0x001,  // highlighted
  ATT_HOTKEY = 0x002,    // a byte of 0x80 or above is shown underlined, without that bit
  ATT_MASKED = 0x020,    // one "*" for each character
  ATT_BRACKET = 0x400,   // "[" and "]" around the field where attributes take a cell of their own
  ATT_BRACKET_KINDS =
      0x004 | 0x008 | 0x010 | 0x020 | 0x800  // fields, checkboxes, passwords, pop lists
};

// Cells of a frame or a window beyond this many are not drawn: no terminal shows so many, and a
// slow line would be busy with them for minutes.
constexpr int drawn_limit = 1000;

// Moves the cursor to column x, row y; a negative one counts as 0. Returns the flush status.
int sposition(int x, int y);

// Clears the screen and switches all attributes off. Returns the flush status.
int sclear();

// Writes s in one write, after replacing each TAB in it by "@" in the caller's own buffer.
// Returns the result of the write.
int display(char* s);

// Shows s at column x, row y as a field `pad` cells wide, with the attributes of `att`. A control
// character shows as one "?" (see printable_length), so that no text can drive the terminal.
// Returns, of a highlighted field, whether its end was sent: 0; of any other field, always 0.
int stand(int x, int y, const char* s, int att, int pad);

// Draws a frame w columns wide and h rows high with its upper-left corner at column x, row y,
// blanking the inside when cs is not 0. A frame of less than 2 columns or 1 row is not drawn at
// all, and of any other frame nothing above row 0 or left of column 0. Returns the flush status.
int do_box_c(int x, int y, int w, int h, int cs);

// The frame whose column, row, width and height are the first four words of `largv`. Returns
// the flush status.
int do_box();

// Draws a progress bar `wid` columns wide on row y, centred on 80 columns and filled in proportion
// curr/tot, with a scale below. What lies left of column 0 is not drawn. Returns 0 when it was
// sent.
int do_therm(int y, int wid, int curr, int tot);

}  // namespace scrim
