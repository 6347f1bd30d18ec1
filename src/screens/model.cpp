// screens/model: the records that screen files become.
// Records are made while screen files are read, and stay until the program ends.

#include "screens/model.h"

#include "common/program.h"
#include "term/drawing.h"
#include "term/endings.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstdio>

namespace scrim {

per_screen* s_screen = nullptr;
int screens = 0;
int curscreen = 0;
per_screen* curscrn = nullptr;
per_screen* scrstack[stack_slots];
per_screen** scr = scrstack;
save_text* atext = nullptr;
save_text* btext = nullptr;
char dbtablename[81];
int swdefer = 0;

// A gadget's flags are handed to `stand` as they are.
static_assert(int{ATT_HOTKEY} == int{GF_BUTTON} && int{ATT_MASKED} == int{GF_PASSWORD});
static_assert(int{ATT_BRACKET_KINDS} ==
              (GF_ETEXT | GF_CHECKBOX | GF_XCHECKBOX | GF_PASSWORD | GF_POPLIST));

static const char no_memory[] = "Can't allocate memory for gadget list";

gadget_list* CreateGadget() {
  per_screen& screen = s_screen[curscreen];
  auto* gadget = static_cast<gadget_list*>(allocate(sizeof(gadget_list), no_memory, exit_screen));
  gadget->prev = screen.blp;
  (screen.blp ? screen.blp->next : screen.gadget_lp) = gadget;
  screen.blp = gadget;
  gadget->gadgetid = screen.gadgets++;
  gadget->up = gadget->down = gadget->right = gadget->left = -1;
  return gadget;
}

gadget_list* gadget_at(const per_screen& screen, int n) {
  gadget_list* gadget = screen.gadget_lp;
  while (gadget && n-- > 0) gadget = gadget->next;
  return gadget;
}

int screen_core(int x, int y, int w, int h) {
  per_screen& screen = s_screen[curscreen];
  screen.windx = x;
  screen.windy = y;
  screen.windw = w;
  screen.windh = h;
  screen.gadgetc = 0;
  return 0;
}

static first_drawing* add_drawing() {
  per_screen& screen = s_screen[curscreen];
  auto* drawing =
      static_cast<first_drawing*>(allocate(sizeof(first_drawing), no_memory, exit_screen));
  (screen.drawings_end ? screen.drawings_end->next : screen.drawings) = drawing;
  screen.drawings_end = drawing;
  return drawing;
}

void draw_frame_at_first(int x, int y, int w, int h) {
  first_drawing* drawing = add_drawing();
  drawing->x = x;
  drawing->y = y;
  drawing->w = w;
  drawing->h = h;
}

void draw_rows_at_first(gadget_list& swin) {
  const first_drawing* last = s_screen[curscreen].drawings_end;
  if (!last || last->rows != &swin) add_drawing()->rows = &swin;
}

void write_position(gadget_list& swin) {
  snprintf(swin.text, sizeof swin.text, "%d,%d", swin.swhigh, swin.swoff);
}

int cursor_line(const gadget_list& swin) {
  const std::int64_t line = std::int64_t{swin.swiny} + swin.swoff;
  return static_cast<int>(std::clamp<std::int64_t>(line, INT_MIN, INT_MAX));
}

void follow_cursor(gadget_list& swin) {
  if (!(swin.flags & GF_SWHIGH)) return;
  swin.swhigh = cursor_line(swin);
  write_position(swin);
}

}  // namespace scrim
