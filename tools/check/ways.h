// tools/check/ways: where actions lead from screen to screen, and what that does to the screens.
#pragma once

#include "tools/check/form.h"

namespace scrim {

// Whether an action that leaves the form has its fields checked first.
bool checks_fields(const form& checked);

// Whether a field can fail such a check.
bool is_checked(const gadget_list& gadget);

// Judges names of screens and actions, and notes which screens are reached.
void check_ways(form& checked);

}  // namespace scrim
