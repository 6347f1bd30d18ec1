// runtime/switching: the screen stack, and the two ways to another screen.
// Screens keep their own active gadget, so one that is shown again goes on where it was left.

#include "runtime/switching.h"

#include "common/program.h"
#include "runtime/painting.h"
#include "screens/model.h"
#include "term/endings.h"

#include <cstdio>
#include <cstring>

namespace scrim {

static char message[256];

static const char* unsuccessful(const char* move, const char* name) {
  snprintf(message, sizeof message, "%s screen %s from %s unsuccessful", move, name,
           curscrn->screenname);
  return message;
}

static per_screen* find_screen(const char* name) {
  for (int i = 0; i < screens; i++)
    if (std::strcmp(s_screen[i].screenname, name) == 0) return &s_screen[i];
  return nullptr;
}

static int show_top() {
  curscrn = *scr;
  curscreen = static_cast<int>(curscrn - s_screen);
  return PaintScreen();
}

int DoGoToScreen(const char* s) {
  per_screen* screen = find_screen(s + 1);
  if (!screen) end_with(unsuccessful("switch to", s + 1), exit_screen);
  *scr = screen;
  return show_top();
}

static void drop_top() {
  if (!scr[-1]) {
    snprintf(message, sizeof message, "return from screen %s not allowed", curscrn->screenname);
    end_with(message, exit_screen);
  }
  scr--;
}

// A full stack refuses the screen, and what was typed is not lost.
static void push(const char* name) {
  per_screen* screen = find_screen(name);
  if (!screen) end_with(unsuccessful("pop up", name), exit_screen);
  if (scr == scrstack + stack_slots - 1) {
    error_pop(unsuccessful("pop up", name));
  } else {
    *++scr = screen;
  }
}

int DoSubScreen(const char* s) {
  if (s[1]) {
    push(s + 1);
  } else {
    drop_top();
  }
  return show_top();
}

}  // namespace scrim
