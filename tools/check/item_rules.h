// tools/check/item_rules: what the items of a line say, of which the records keep only a part: the
// beginning of a long one, nothing of an unknown one. Each of these judges the line in cbuf, which
// its handler has taken, for the rules' table.
#pragma once

#include "tools/check/form.h"

#include <string_view>

namespace scrim {

void check_name(form& checked, int line);
void check_title(form& checked, int line);
void check_default(form& checked, int line);
void check_button(form& checked, int line);
void check_field(form& checked, int line);
void check_box(form& checked, int line);
void check_pop_list(form& checked, int line);
void check_scroll_window(form& checked, int line);

bool is_shell_name(std::string_view name);

// Whether a shell, or a script that uses scrim, has its own use for the variable.
bool has_other_use(std::string_view name);

// Judges the references ${NAME} of a line as it is written.
void check_references(form& checked, int line);

}  // namespace scrim
