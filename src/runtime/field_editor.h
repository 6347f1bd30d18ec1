// runtime/field_editor: the keys inside an edit field: moving, scrolling a long value, deleting,
// and typing what the column type accepts.
#pragma once

#include "screens/model.h"

namespace scrim {

// Where the cursor stands in the value of the field being edited.
struct field_cursor {
  int editcurs;  // column inside the field, 0 to its width; the width is the cell of the "]"
  int fldcurs;   // index of the first character in view
};

// Begins to edit a field: the cursor behind the last character, the end of a long value in view.
void enter_field(const gadget_list& field, field_cursor& cursor);

// Moves the cursor by a character, scrolling the view at its ends.
void cursor_left(const gadget_list& field, field_cursor& cursor);
void cursor_right(const gadget_list& field, field_cursor& cursor);

// Removes the character before the cursor; nothing at the start of the value.
void backspace(gadget_list& field, field_cursor& cursor);

// Any other key: deletes the character at the cursor, or inserts the key where the field accepts
// it and has room.
void edit_key(gadget_list& field, field_cursor& cursor, int key);

}  // namespace scrim
