// term/capabilities: what the terminal can do, loaded once from terminfo or termcap.
// The rest of the program sees no difference between the two descriptions.

#include "term/capabilities.h"

#include "common/program.h"
#include "common/text.h"
#include "term/built_in.h"
#include "term/key_codes.h"
#include "term/tty.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <iterator>

#include <unistd.h>

#define NCURSES_NOMACROS
#include <curses.h>
#include <term.h>

namespace scrim {

int use_termcap = 0;
int use_reverse = 1;
int attrib_space = 0;
int T_LINES = 0;

char* T_CLEAR = nullptr;
char* T_UP = nullptr;
char* T_DN = nullptr;
char* T_LT = nullptr;
char* T_RT = nullptr;
char* T_HOME = nullptr;
char* T_CUP = nullptr;
char* T_SGR0 = nullptr;
char* T_STANDON = nullptr;
char* T_STANDOFF = nullptr;
char* T_ULON = nullptr;
char* T_ULOFF = nullptr;
char* T_DIM = nullptr;
char* T_KEYUP = nullptr;
char* T_KEYDN = nullptr;
char* T_KEYLT = nullptr;
char* T_KEYRT = nullptr;
char* T_KEYDL = nullptr;
char* T_KEYBS = nullptr;
char* T_KEYNP = nullptr;
char* T_KEYPP = nullptr;
char* T_ALTON = nullptr;
char* T_ALTOFF = nullptr;
char* T_ALTINI = nullptr;

const char* xkey_incodes[key_slots];
char* graph_on = nullptr;
char* graph_off = nullptr;
static const char vt100graph[line_slots + 1] = "qxnvwmlkjtu";  // the VT100 letter of each slot
char cxxxgraph[line_slots + 1] = "-|+++++++++";

static const int default_lines = 24;              // for a terminal that does not tell its height
static const std::size_t reserve_size = 100'000;  // bytes; a description takes half as many

static void* reserve = nullptr;

static char mtermname[50];      // TERM, for the termcap library and its message
static char tcap_buff[10000];   // the terminal's termcap entry
static char capes[10000];       // strings fetched from it
static char* capept = nullptr;  // where the next string goes

// The library says "absent" with a null and "cancelled" with -1; either way there is no string.
static char* present(char* s) { return s == reinterpret_cast<char*>(-1) ? nullptr : s; }

// The library copies a string into `capes` without looking where `capes` ends: this function looks.
static char* termcap_string(const char* name) {
  char* found = present(tgetstr(const_cast<char*>(name), nullptr));
  if (!found) return nullptr;
  const auto room = static_cast<std::size_t>(capes + sizeof capes - capept);
  return std::strlen(found) < room ? tgetstr(const_cast<char*>(name), &capept) : nullptr;
}

// What a key slot's bytes are called in the two descriptions. The terminfo names are macros of the
// library that read the description loaded last, so a row holds a function that reads: a row with
// the value itself would be filled before any description is loaded.
struct key_slot {
  std::int16_t code;
  char* (*terminfo)();   // null: no key of the description
  const char* termcap;   // null: the same
  const char* fallback;  // termcap name taken when the first is absent or empty; or null
};
static constexpr key_slot slots[] = {
    {XKEY_UP, [] { return key_up; }, "ku", nullptr},
    {XKEY_DOWN, [] { return key_down; }, "kd", nullptr},
    {XKEY_LEFT, [] { return key_left; }, "kl", nullptr},
    {XKEY_RIGHT, [] { return key_right; }, "kr", nullptr},
    {XKEY_DELETE, [] { return key_dc; }, "kD", nullptr},
    {XKEY_BACKSPACE, [] { return key_backspace; }, "kb", nullptr},
    {XKEY_NEXT, [] { return key_npage; }, "PD", "kN"},
    {XKEY_PREV, [] { return key_ppage; }, "PU", "kP"},
    {XKEY_UP, nullptr, nullptr, nullptr},     // Ctrl-K
    {XKEY_RIGHT, nullptr, nullptr, nullptr},  // Ctrl-L
    {XKEY_DOWN, nullptr, nullptr, nullptr},   // Ctrl-J
    {XKEY_MOUSE, nullptr, nullptr, nullptr},
    {XKEY_NULL, [] { return key_f0; }, "k1", nullptr},
    {XKEY_F1, [] { return key_f1; }, "k2", nullptr},
    {XKEY_F2, [] { return key_f2; }, "k3", nullptr},
    {XKEY_F3, [] { return key_f3; }, "k4", nullptr},
    {XKEY_F4, [] { return key_f4; }, "k5", nullptr},
    {XKEY_F4, [] { return key_f5; }, "k6", nullptr},
    {XKEY_F4, [] { return key_f6; }, "k7", nullptr},
    {XKEY_F4, [] { return key_f7; }, "k8", nullptr},
    {XKEY_F4, [] { return key_f8; }, "k9", nullptr},
    {XKEY_F4, [] { return key_f9; }, "k;", nullptr},
    {XKEY_F4, [] { return key_f10; }, "F1", nullptr},
    {XKEY_F4, [] { return key_f11; }, "F2", nullptr},
    {XKEY_F4, [] { return key_f12; }, "F3", nullptr},
    {XKEY_F4, [] { return key_f13; }, "F4", nullptr},
    {XKEY_F4, [] { return key_f14; }, "F5", nullptr},
    {XKEY_F4, [] { return key_f15; }, "F6", nullptr},
    {XKEY_F4, [] { return key_f16; }, "F7", nullptr},
    {XKEY_F4, [] { return key_f17; }, "F8", nullptr},
    {XKEY_F4, [] { return key_f18; }, "F9", nullptr},
    {XKEY_F4, [] { return key_f19; }, "FA", nullptr},
    {XKEY_F4, [] { return key_f20; }, "FB", nullptr},
    {XKEY_F4, [] { return key_f21; }, "FC", nullptr},
    {XKEY_F4, [] { return key_f22; }, "FD", nullptr},
    {XKEY_F4, [] { return key_f23; }, "FE", nullptr},
    {XKEY_F4, [] { return key_f24; }, "FF", nullptr},
    {XKEY_F4, nullptr, nullptr, nullptr},  // never filled
};
static_assert(std::size(slots) == key_slots);
static_assert(slots[slot_backspace].code == XKEY_BACKSPACE && slots[slot_mouse].code == XKEY_MOUSE);
static_assert(slots[slot_control_k].code == XKEY_UP && slots[slot_control_l].code == XKEY_RIGHT);
static_assert(slots[slot_control_j].code == XKEY_DOWN && slots[slot_function].code == XKEY_NULL);

std::int16_t specialkeys(int slot) { return slots[slot].code; }

static const char* key_bytes(const key_slot& slot) {
  if (!slot.terminfo) return nullptr;
  if (!use_termcap) return present(slot.terminfo());
  const char* found = termcap_string(slot.termcap);
  const bool missing = !found || !*found;
  return missing && slot.fallback ? termcap_string(slot.fallback) : found;
}

static void load_keys() {
  std::transform(std::begin(slots), std::end(slots), xkey_incodes, key_bytes);
  const char*& backspace = xkey_incodes[slot_backspace];
  if (use_termcap && (!backspace || !*backspace)) backspace = "\x08";
}

// Where attributes take a cell, the terminal is of the kind whose cursor keys send control bytes.
static void load_fixed_keys() {
  const bool control_keys = attrib_space > 0;
  xkey_incodes[slot_control_k] = control_keys ? "\x0b" : "";
  xkey_incodes[slot_control_l] = control_keys ? "\x0c" : "";
  xkey_incodes[slot_control_j] = control_keys ? "\x0a" : "";
  xkey_incodes[slot_mouse] = "\x1b>";
}

struct string_capability {
  char* (*terminfo)();  // reads the terminfo string; a function, as in a key slot
  const char* termcap;  // its termcap name
  char** destination;
};
static constexpr string_capability strings[] = {
    {[] { return clear_screen; }, "cl", &T_CLEAR},
    {[] { return cursor_up; }, "up", &T_UP},
    {[] { return cursor_down; }, "do", &T_DN},
    {[] { return cursor_left; }, "le", &T_LT},
    {[] { return cursor_right; }, "nd", &T_RT},
    {[] { return cursor_home; }, "ho", &T_HOME},
    {[] { return cursor_address; }, "cm", &T_CUP},
    {[] { return exit_attribute_mode; }, "me", &T_SGR0},
    {[] { return use_reverse ? enter_reverse_mode : enter_standout_mode; }, "rv", &T_STANDON},
    {[] { return use_reverse ? exit_attribute_mode : exit_standout_mode; }, "re", &T_STANDOFF},
    {[] { return enter_underline_mode; }, "us", &T_ULON},
    {[] { return exit_underline_mode; }, "ue", &T_ULOFF},
    {[] { return enter_dim_mode; }, "mh", &T_DIM},
    {[] { return keypad_xmit; }, "ks", &T_KEYXMIT},
    {[] { return keypad_local; }, "ke", &T_KEYLOCAL},
};

static void load_strings() {
  for (const string_capability& row : strings)
    *row.destination = use_termcap ? termcap_string(row.termcap) : present(row.terminfo());
}

static void load_numbers() {
  T_LINES = use_termcap ? tgetnum(const_cast<char*>("li")) : lines;
  if (T_LINES <= 0) T_LINES = default_lines;
  const int cells = use_termcap ? tgetnum(const_cast<char*>("sg")) : magic_cookie_glitch;
  attrib_space = std::clamp(cells, 0, layout_columns);
}

static bool look_up() {
  if (use_termcap) {
    const char* term = getenv("TERM");
    copy_text(mtermname, term ? term : "");
    capept = capes;
    return *mtermname && tgetent(tcap_buff, mtermname) == 1;
  }
  int result = 0;
  setupterm(nullptr, STDOUT_FILENO, &result);
  return result == 1;
}

static bool find_description() {
#ifdef SCRIM_STATIC
  return look_up() || find_built_in(look_up);
#else
  return look_up();
#endif
}

static void graphics_from_termcap() {
  static const char* const names[] = {
      "GH",  // horizontal line
      "GV",  // vertical line
      "GC",  // crossing
      "GU",  // bottom tee
      "GD",  // top tee
      "G3",  // lower-left corner
      "G2",  // upper-left corner
      "G1",  // upper-right corner
      "G4",  // lower-right corner
      "GR",  // left tee
      "GL",  // right tee
  };
  static_assert(std::size(names) == line_slots);
  if (!termcap_string(names[line_lower_left])) return;
  graph_on = termcap_string("GS");
  graph_off = termcap_string("GE");
  for (int i = 0; i < line_slots; i++) {
    const char* found = termcap_string(names[i]);
    if (found && *found) cxxxgraph[i] = *found;
  }
}

static void graphics_from_terminfo() {
  const char* pairs = present(acs_chars);
  graph_on = present(enter_alt_charset_mode);
  graph_off = present(exit_alt_charset_mode);
  if (!pairs || !*pairs || !graph_on || !*graph_on || !graph_off || !*graph_off) {
    graph_on = graph_off = nullptr;
    return;
  }
  M_putp(present(ena_acs));
  for (int i = 0; i < line_slots; i++) {
    const char* pair = pairs;
    while (pair[0] && pair[1] && pair[0] != vt100graph[i]) pair += 2;
    if (pair[0] && pair[1]) cxxxgraph[i] = pair[1];
  }
}

int initgraphics() {
  use_termcap ? graphics_from_termcap() : graphics_from_terminfo();
  return graph_on != nullptr;
}

void keep_reserve() {
  reserve = malloc(reserve_size);
  if (reserve) return;
  complain({"ERROR: out of memory"});
  exit(exit_file);
}

int open_terminal() {
  if (setup_ttymode() != 0) return exit_no_terminal;
  if (ttym) return 0;
  free(reserve);
  reserve = nullptr;
  if (!find_description()) {
    restore_ttymode();
    return exit_unknown_terminal;
  }
  load_keys();
  load_strings();
  load_numbers();
  load_fixed_keys();
  ttym = 1;
  initgraphics();
  return 0;
}

// Descriptions are files: a process that may open no more files finds none.
static bool files_can_be_opened() {
  const int fd = dup(STDERR_FILENO);
  if (fd != -1) close(fd);
  return fd != -1;
}

static void complain_of_terminal() {
  if (use_termcap) {
    complain({progname, ": I don't understand your terminal type ", mtermname});
  } else {
    complain({progname, ": I don't understand your terminal type"});
  }
  if (!files_can_be_opened()) complain({progname, ": too many open files to read its description"});
}

int go_raw() {
  const int status = open_terminal();
  if (status == 0) return 0;
  if (status == exit_no_terminal) {
    complain({"Can't init tty modes"});
  } else {
    complain_of_terminal();
  }
  exit(status);
}

}  // namespace scrim
