// runtime/pop_field: the keys on a pop-list field: opening its list, and typing to step through its
// entries.
#pragma once

#include "screens/model.h"

namespace scrim {

// Opens the field's list and takes the entry picked, if one is, as the field's value. Paints the
// screen again without clearing the terminal. The field counts as changed either way.
void open_pop_list(gadget_list& field);

// Steps to another entry and shows it in the field: with a letter to the next one that begins with
// that letter as a capital, with any other key to the next one.
void type_on_pop_list(gadget_list& field, int key);

}  // namespace scrim
