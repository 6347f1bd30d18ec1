// term/capabilities: what the terminal can do, loaded once from terminfo or termcap: its strings,
// its key sequences and its line-drawing characters. A string that the terminal lacks is null;
// sending a null string sends nothing.
#pragma once

#include <cstdint>

namespace scrim {

extern int use_termcap;  // 0: describe the terminal through terminfo, 1: through termcap
extern int use_reverse;  // terminfo only; 1: standout is the reverse string, 0: the standout string

extern int attrib_space;  // cells that an attribute change takes on the screen, 0 to 80
extern int T_LINES;       // lines of the screen

extern char* T_CLEAR;     // clears the screen
extern char* T_UP;        // cursor one line up
extern char* T_DN;        // one line down
extern char* T_LT;        // one column left
extern char* T_RT;        // one column right
extern char* T_HOME;      // to the upper-left corner
extern char* T_CUP;       // to a given row and column
extern char* T_SGR0;      // all attributes off
extern char* T_STANDON;   // standout on
extern char* T_STANDOFF;  // standout off
extern char* T_ULON;      // underline on
extern char* T_ULOFF;     // underline off
extern char* T_DIM;       // dim; ends standout where attributes take a cell

// Never loaded, and so always null; the capability dump lists them.
extern char* T_KEYUP;   // cursor-up key
extern char* T_KEYDN;   // cursor-down key
extern char* T_KEYLT;   // cursor-left key
extern char* T_KEYRT;   // cursor-right key
extern char* T_KEYDL;   // delete-character key
extern char* T_KEYBS;   // backspace key
extern char* T_KEYNP;   // next-page key
extern char* T_KEYPP;   // previous-page key
extern char* T_ALTON;   // alternate character set on
extern char* T_ALTOFF;  // alternate character set off
extern char* T_ALTINI;  // alternate character set enabled

// Slots of the special keys; the key decoder tries them in this order.
enum {
  slot_backspace = 5,
  slot_control_k = 8,
  slot_control_l = 9,
  slot_control_j = 10,
  slot_mouse = 11,     // the start of a mouse report
  slot_function = 12,  // the first function key
  key_slots = 38
};
extern const char* xkey_incodes[key_slots];  // the bytes of each key; null or empty: none

// The code of the key in a slot.
std::int16_t specialkeys(int slot);

// Slots of the line-drawing characters.
enum {
  line_horizontal,
  line_vertical,
  line_crossing,
  line_bottom_tee,
  line_top_tee,
  line_lower_left,
  line_upper_left,
  line_upper_right,
  line_lower_right,
  line_left_tee,
  line_right_tee,
  line_slots
};
extern char* graph_on;                  // enters the line-drawing set; null: there is none
extern char* graph_off;                 // leaves the line-drawing set
extern char cxxxgraph[line_slots + 1];  // the character in use for each slot

// Sets memory aside for the terminal's description, so that a program that has run out of memory
// can still show its last message. Called once, at the start; open_terminal gives the memory back.
// Where there is not so much memory, the program ends with a message and status 253.
void keep_reserve();

// Sets the terminal to raw mode and loads its capabilities; where they are loaded already, only
// applies raw mode again. Returns 0; 5 when there is no terminal to open; 6 when the terminal's
// type is unknown, with the user's settings back in place. Writes no message.
int open_terminal();

// open_terminal, ending the program with a message and status 5 or 6 where it fails. Returns 0.
int go_raw();

// Chooses the line-drawing characters. Returns 1 when the terminal has a set of its own, else 0.
int initgraphics();

}  // namespace scrim
