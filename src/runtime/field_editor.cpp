// runtime/field_editor: the keys inside an edit field.
// The cursor's index into the value is fldcurs + editcurs, from 0 to the value's length.

#include "runtime/field_editor.h"

#include "common/text.h"
#include "term/drawing.h"
#include "term/key_codes.h"

#include <algorithm>
#include <cstring>

namespace scrim {

static const int longest_value = sizeof(gadget_list::text) - 1;

static int length_of(const gadget_list& field) { return static_cast<int>(std::strlen(field.text)); }

static void place_cursor(const gadget_list& field, const field_cursor& cursor) {
  sposition(field.x + cursor.editcurs, field.y);
}

static void draw_view(const gadget_list& field, const field_cursor& cursor) {
  const int att = (field.flags & (GF_BUTTON | GF_PASSWORD)) | ATT_STANDOUT;
  stand(field.x, field.y, field.text + cursor.fldcurs, att, field.w);
}

void enter_field(const gadget_list& field, field_cursor& cursor) {
  const int n = length_of(field);
  cursor.editcurs = std::min(n, std::max(field.w, 0));
  cursor.fldcurs = n - cursor.editcurs;
  if (cursor.editcurs < n) draw_view(field, cursor);
  place_cursor(field, cursor);
}

void cursor_left(const gadget_list& field, field_cursor& cursor) {
  if (cursor.editcurs > 0) {
    cursor.editcurs--;
  } else if (cursor.fldcurs > 0) {
    cursor.fldcurs--;
    draw_view(field, cursor);
  }
  place_cursor(field, cursor);
}

// Moves one character on: in the view while there is room, else by scrolling the view.
static void advance(const gadget_list& field, field_cursor& cursor) {
  (cursor.editcurs < field.w ? cursor.editcurs : cursor.fldcurs)++;
}

void cursor_right(const gadget_list& field, field_cursor& cursor) {
  if (cursor.fldcurs + cursor.editcurs < length_of(field)) {
    const int view = cursor.fldcurs;
    advance(field, cursor);
    if (cursor.fldcurs != view) draw_view(field, cursor);
  }
  place_cursor(field, cursor);
}

static void delete_at_cursor(gadget_list& field, const field_cursor& cursor) {
  char* at = field.text + cursor.fldcurs + cursor.editcurs;
  if (*at) std::memmove(at, at + 1, std::strlen(at));
  field.flags |= GF_MODIFIED;
}

void backspace(gadget_list& field, field_cursor& cursor) {
  if (cursor.fldcurs + cursor.editcurs > 0) {
    (cursor.editcurs > 0 ? cursor.editcurs : cursor.fldcurs)--;
    delete_at_cursor(field, cursor);
  }
  draw_view(field, cursor);
  place_cursor(field, cursor);
}

static bool accepts(const gadget_list& field, int key) {
  if (key < ' ' || key >= 0x80) return false;
  const char* only = nullptr;
  if (field.dbtype & DBT_NUMBER) only = "0123456789-.";
  if (field.dbtype & DBT_DATE) only = "0123456789/ *";
  return !only || std::strchr(only, key);
}

static void insert(gadget_list& field, field_cursor& cursor, int key) {
  if (length_of(field) >= std::min(field.m, longest_value)) return;
  char* at = field.text + cursor.fldcurs + cursor.editcurs;
  std::memmove(at + 1, at, std::strlen(at) + 1);
  *at = static_cast<char>(key);
  advance(field, cursor);
  field.flags |= GF_MODIFIED;
}

void edit_key(gadget_list& field, field_cursor& cursor, int key) {
  if (key == XKEY_DELETE || key == key_del) {
    delete_at_cursor(field, cursor);
  } else if (accepts(field, key)) {
    insert(field, cursor, key);
  }
  draw_view(field, cursor);
  place_cursor(field, cursor);
}

}  // namespace scrim
