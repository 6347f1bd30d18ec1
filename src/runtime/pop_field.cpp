// runtime/pop_field: the keys on a pop-list field.
// A field's value is one of its entries, or a text that the screen file gave.

#include "runtime/pop_field.h"

#include "common/program.h"
#include "common/text.h"
#include "runtime/painting.h"
#include "runtime/pick_list.h"
#include "term/drawing.h"

#include <cstring>
#include <string_view>

namespace scrim {

static void repaint_without_clearing() {
  const int type = curscrn->screentype;
  curscrn->screentype &= ~ST_CLEAR;
  PaintScreen();
  curscrn->screentype = type;
}

static int entry_equal_to(char** entries, const char* text) {
  for (int i = 0; entries[i]; i++)
    if (std::strcmp(entries[i], text) == 0) return i;
  return 0;
}

void open_pop_list(gadget_list& field) {
  char** entries = field.list + poplist_entries;
  largv = field.list + poplist_column;
  const int picked = do_list(1, entry_equal_to(entries, field.text));
  if (picked >= 0) copy_text(field.text, entries[picked]);
  field.flags |= GF_MODIFIED;
  repaint_without_clearing();
}

static int entry_beginning_with(char** entries, std::string_view text) {
  for (int i = 0; entries[i]; i++)
    if (std::string_view(entries[i]).starts_with(text)) return i;
  return 0;
}

static int typed_entry(char** entries, int from, int key) {
  if (is_letter(key)) return next_by_letter(entries, from, key);
  return entries[from + 1] ? from + 1 : 0;
}

void type_on_pop_list(gadget_list& field, int key) {
  char** entries = field.list + poplist_entries;
  const int from = entry_beginning_with(entries, field.text);
  copy_text(field.text, entries[typed_entry(entries, from, key)]);
  field.flags |= GF_MODIFIED;
  stand(field.x, field.y, field.text, ATT_BRACKET, field.w);
}

}  // namespace scrim
