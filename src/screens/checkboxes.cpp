// screens/checkboxes: the directives of checkboxes.
// The exclusive checkboxes of a screen form one chain: checking one of them clears the others.

#include "common/program.h"
#include "common/text.h"
#include "screens/directives.h"
#include "screens/model.h"
#include "screens/reader.h"

#include <string_view>

namespace scrim {

// The slot of the attached text that a checkbox names; null: it names none.
static save_text** slot_named(const char* reference) {
  if (!reference || !*reference) return nullptr;
  if (*reference == 'a') return &atext;
  if (*reference == 'b') return &btext;
  refuse(exit_screen, {"checkbox save text reference error"});
  return nullptr;
}

gadget_list* f_checkbox_core(int flags) {
  per_screen& screen = s_screen[curscreen];
  int position[most_numbers];
  const char* at = nullptr;
  first_numbers(at, position);
  const std::string_view state = next_item(at), name = next_item(at);
  save_text** slot = slot_named(at);
  if (refused.status != 0) return nullptr;
  screen.gadgetc++;
  gadget_list* box = CreateGadget();
  box->flags = flags;
  box->x = screen.windx + position[0];
  box->y = screen.windy + position[1];
  box->w = 1;
  box->tlink = slot;
  copy_text(box->text, state);
  copy_text(box->op, name);
  return box;
}

static int exclusive_checkbox(int flags) {
  gadget_list* box = f_checkbox_core(flags);
  if (!box) return 0;
  per_screen& screen = s_screen[curscreen];
  (screen.cb_link ? screen.cb_last->link : screen.cb_link) = box;
  screen.cb_last = box;
  return 0;
}

int f_checkbox() {
  f_checkbox_core(GF_CHECKBOX);
  return 0;
}

int f_dcheckbox() {
  f_checkbox_core(GF_CHECKBOX | GF_DEFAULT);
  return 0;
}

int f_xcheckbox() { return exclusive_checkbox(GF_XCHECKBOX); }
int f_dxcheckbox() { return exclusive_checkbox(GF_XCHECKBOX | GF_DEFAULT); }

}  // namespace scrim
