// driver/diagnostics: what the program makes of a terminal: its keys, and its capabilities.
// Standard output is flushed before anything goes to the terminal, which may be the same.

#include "driver/diagnostics.h"

#include "common/program.h"
#include "term/capabilities.h"
#include "term/key_codes.h"
#include "term/keys.h"
#include "term/leaving.h"
#include "term/tty.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace scrim {

struct dump_row {
  const char* label;
  char** string;
};
static const dump_row strings[] = {
    {"T_KEYUP", &T_KEYUP},        //
    {"T_KEYDN", &T_KEYDN},        //
    {"T_KEYLT", &T_KEYLT},        //
    {"T_KEYRT", &T_KEYRT},        //
    {"T_KEYDL", &T_KEYDL},        //
    {"T_KEYBS", &T_KEYBS},        //
    {"T_KEYNP", &T_KEYNP},        //
    {"T_KEYPP", &T_KEYPP},        //
    {"T_ALTON", &T_ALTON},        //
    {"T_ALTOFF", &T_ALTOFF},      //
    {"T_ALTINI", &T_ALTINI},      //
    {"T_CLEAR", &T_CLEAR},        //
    {"T_UP", &T_UP},              //
    {"T_DN", &T_DN},              //
    {"T_LT", &T_LT},              //
    {"T_RT", &T_RT},              //
    {"T_HOME", &T_HOME},          //
    {"T_CUP", &T_CUP},            //
    {"T_SGR0", &T_SGR0},          //
    {"T_STANDON", &T_STANDON},    //
    {"T_STANDOFF", &T_STANDOFF},  //
    {"T_ULON", &T_ULON},          //
    {"T_ULOFF", &T_ULOFF},
};

static const char* name_of(int code) {
  for (const skt* row = specialktext; row->kcode; row++)
    if (row->kcode == code) return row->ktext;
  return nullptr;
}

void key_test() {
  debug_flag = 1;
  printf("Enter test keystrokes:\n");
  fflush(stdout);
  go_raw();
  for (int key = get_key(); key != key_escape; key = get_key()) {
    if (const char* name = name_of(key)) {
      printf("Key = %s\n\r", name);
    } else {
      printf("Key = %d\n\r", key);
    }
    fflush(stdout);
  }
  printf("Key = ESCAPE\n\r%d lines\n\r", T_LINES);
  fflush(stdout);
  win_exit(exit_normal);
}

int dumpit(const char* s, const char* cp, int n) {
  printf("%s ", s);
  if (!cp) printf("[nullpointer]");
  for (int i = 0; cp && i < n; i++) printf("%02x ", static_cast<unsigned char>(cp[i]));
  putchar('\n');
  return 0;
}

static void show_graphics() {
  static const int sample[] = {line_upper_left,  line_upper_right, line_lower_left,
                               line_lower_right, line_horizontal,  line_vertical};
  const int shown = 8;
  dumpit("Graphics capable ", graph_on, static_cast<int>(strnlen(graph_on, shown)));
  fflush(stdout);
  M_putp(graph_on);
  for (const int slot : sample) write_terminal(&cxxxgraph[slot], 1);
  M_putp(graph_off);
  putchar('\n');
}

void capability_dump() {
  go_raw();
  restore_ttymode();
  if (graph_on) {
    show_graphics();
  } else {
    puts("Not Graphics capable");
  }
  for (const dump_row& row : strings)
    dumpit(row.label, *row.string, *row.string ? static_cast<int>(std::strlen(*row.string)) : 0);
  exit(exit_normal);
}

}  // namespace scrim
