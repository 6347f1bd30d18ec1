// screens/checkboxes: the directives of checkboxes.
// The exclusive ones of a screen form one chain, in which ticking one clears the others.

#include "common/program.h"
#include "common/text.h"
#include "screens/directives.h"
#include "screens/reader.h"
#include "term/endings.h"

namespace scrim {

static save_text** slot_named(char reference) {
  if (reference == 'a') return &atext;
  if (reference == 'b') return &btext;
  end_with("checkbox save text reference error", exit_screen);
}

gadget_list* f_checkbox_core() {
  per_screen& screen = s_screen[curscreen];
  int position[2];
  const char* at = first_item(cbuf);
  next_numbers(at, ",", position);
  const std::string_view state = next_item(at);
  screen.gadgetc++;
  gadget_list* box = CreateGadget();
  box->x = screen.windx + position[0];
  box->y = screen.windy + position[1];
  box->w = 1;
  copy_text(box->text, state);
  copy_text(box->op, next_item(at));
  if (at && *at) box->tlink = slot_named(*at);
  return box;
}

static int exclusive_checkbox(int flags) {
  gadget_list* box = f_checkbox_core();
  box->flags = flags;
  per_screen& screen = s_screen[curscreen];
  (screen.cb_link ? screen.cb_last->link : screen.cb_link) = box;
  screen.cb_last = box;
  return 0;
}

int f_checkbox() {
  f_checkbox_core()->flags = GF_CHECKBOX;
  return 0;
}

int f_dcheckbox() {
  f_checkbox_core()->flags = GF_CHECKBOX | GF_DEFAULT;
  return 0;
}

int f_xcheckbox() { return exclusive_checkbox(GF_XCHECKBOX); }
int f_dxcheckbox() { return exclusive_checkbox(GF_XCHECKBOX | GF_DEFAULT); }

}  // namespace scrim
