// screens/model: the records that screen files become: a table of screens, each with a list of
// gadgets in the order of its file. Records live until the program ends.
#pragma once

namespace scrim {

// Gadget flags.
enum {
  GF_DEFAULT = 0x0001,  // the screen starts with the first such gadget active
  GF_BUTTON = 0x0002,
  GF_ETEXT = 0x0004,  // edit field
  GF_CHECKBOX = 0x0008,
  GF_XCHECKBOX = 0x0010,  // exclusive checkbox, a member of the screen's cb_link chain
  GF_PASSWORD = 0x0020,   // the value shows as one "*" for each character
  GF_MODIFIED = 0x0040,   // the value is written out
  GF_SWIN = 0x0080,       // scroll window
  GF_SWHIGH = 0x0100,     // the scroll window highlights the cursor's line
  GF_TEXT = 0x0200,       // one line of a text block
  GF_POPLIST = 0x0800     // pop-up list field
};

// What is no gadget's kind: these flags only qualify it.
constexpr int qualifying_flags = GF_DEFAULT | GF_PASSWORD | GF_MODIFIED | GF_SWHIGH;

// Column types and options.
enum {
  DBT_CHAR = 0x0001,
  DBT_VARCHAR2 = 0x0002,
  DBT_NUMBER = 0x0004,
  DBT_DATE = 0x0008,
  DBT_TYPEMASK = 0x000F,  // the bits above, of which at most one is set
  DBT_REQUIRED = 0x1000,  // the field must not be left empty
  DBT_VALIDATE = 0x2000   // pressing the button validates the fields first
};

// Screen types.
enum {
  ST_FULLS = 0x01,    // the window fills the screen
  ST_POP = 0x02,      // the window has a size of its own and is centred
  ST_CLEAR = 0x04,    // the terminal is cleared before the window is painted
  ST_OVERLAY = 0x08,  // only the window's inside is blanked
  ST_VALIDATE = 0x10  // the default action validates the fields first
};

// A block of text that checking a checkbox paints.
struct save_text {
  int x, y;      // column and row of the first line
  char text[1];  // the lines, each with its newline, then a NUL; the record is as long as they are
};

struct gadget_list {
  gadget_list* next;          // in the order of the file
  gadget_list* link;          // exclusive checkbox: the next one of the screen
  save_text** tlink;          // checkbox: the slot of its attached text (the text may come later)
  int gadgetid;               // position in the screen's list, from 0
  int up, down, right, left;  // gadgetid that each cursor key leads to; -1: none
  int flags;                  // GF_ bits
  int dbtype;                 // DBT_ bits
  int x, y;                   // column and row on the terminal
  int w;                      // width in columns
  int m;                      // edit field: the most characters that can be entered
  int h;                      // height in rows
  int l;                      // scroll window: newlines in its data
  int swoff;                  // scroll window: lines scrolled off above
  int swhigh;                 // scroll window: the highlighted line, counted from 1; -1: none
  int swinx, swiny;           // scroll window: cursor column and row inside it
  char* filedata;             // scroll window: its data, ended by a NUL
  char hotkey;                // button: its hot key, in lower case; 0: none
  char text[80];              // label, value or state
  char op[20];                // button: its action; every other kind: the variable of its value
  char pattern[80];           // date field: the shape of a date
  char** list;                // pop list: its words; from the third on those of a pick list
  gadget_list* prev;
};

// Something that its directive draws once: a frame, or the rows of a scroll window.
struct first_drawing {
  first_drawing* next;
  int x, y, w, h;     // the frame
  gadget_list* rows;  // the scroll window whose rows are drawn instead; null: the frame
};

struct per_screen {
  char screenname[21];
  char screentitle[81];
  int gadgets;       // gadgets created so far, the next one's gadgetid
  int screentype;    // ST_ bits
  int activeg;       // gadgetid of the active gadget
  int oldactive;     // the one of the loop's last pass; -1: none yet
  int windx, windy;  // column and row of the window's upper-left corner
  int windw, windh;  // its width and height, frame included
  int gadgetc;       // interactive gadgets declared since the window was set
  char filename[81];
  char default_string[81];      // action of the confirm keys where no button is active
  gadget_list* blp;             // while loading, the list's last gadget; then the active one
  gadget_list* gadget_lp;       // the list's first gadget
  gadget_list* cb_link;         // first exclusive checkbox
  gadget_list* last_swin;       // scroll window declared last
  gadget_list* cb_last;         // last exclusive checkbox
  const char* path;             // the file's name uncut, for opening it
  first_drawing* drawings;      // what the first painting draws besides window and gadgets
  first_drawing* drawings_end;  // its last one
  int paintings;                // how often the screen has been painted
};

// Words of a pop list's vector. They are the items of its line, but for two: text and name are
// copied into the record, and the list's column and row take their places. So the words from the
// column on are the words of a pick list:
//
//     poplist : 20,5 : open  : STATE : open : closed : (null)
//     poplist   20,5   "20"    "5"     open   closed   (null)
//     [0]       [1]    [2]     [3]     [4]    [5]      [6]
enum {
  poplist_place = 1,  // its position, as the line gives it
  poplist_column = 2,
  poplist_row = 3,
  poplist_entries = 4  // the first of them
};

constexpr int stack_slots = 24;  // the bottom one stays null

extern per_screen* s_screen;  // the screen table
extern int screens;           // its number of records
extern int curscreen;         // index of the screen being loaded, then of the one shown
extern per_screen* curscrn;   // the screen being shown
extern per_screen* scrstack[stack_slots];  // the screens that "^" returns to
extern per_screen** scr;                   // its top
extern save_text* atext;                   // the attached text "a"; null until a file has one
extern save_text* btext;                   // the attached text "b"
extern char dbtablename[81];               // the last table directive's name
extern int swdefer;                        // 1: scroll windows being loaded draw no rows yet

// A new gadget with every field at its default, at the end of the list of screen `curscreen`.
// Without memory the program ends with a message and status 3.
gadget_list* CreateGadget();

// Gadget number n of a screen, or null when there is none.
gadget_list* gadget_at(const per_screen& screen, int n);

// The flag that says what a gadget is: its flags without those that only qualify it.
inline int kind_of(const gadget_list& gadget) { return gadget.flags & ~qualifying_flags; }

// Whether the cursor keys can lead to the gadget.
inline bool navigable(const gadget_list& gadget) { return (kind_of(gadget) & ~GF_TEXT) != 0; }

// Sets the window of the screen being loaded and begins to count its interactive gadgets anew.
// Returns 0.
int screen_core(int x, int y, int w, int h);

// Keeps a frame, or a scroll window's rows, for the first painting of the screen being loaded.
// Without memory the program ends with a message and status 3.
void draw_frame_at_first(int x, int y, int w, int h);
void draw_rows_at_first(gadget_list& swin);

// The data line, counted from 1, that a scroll window's cursor stands on.
int cursor_line(const gadget_list& swin);

// Takes a scroll window's highlight to the cursor's line when it follows the cursor, and its value
// with it.
void follow_cursor(gadget_list& swin);

// Writes a scroll window's value: highlighted line and lines scrolled off.
void write_position(gadget_list& swin);

}  // namespace scrim
