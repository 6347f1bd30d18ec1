// tools/check/form_rules: what can be said of a form once all its screens are loaded.
#pragma once

#include "tools/check/form.h"

namespace scrim {

void check_form(form& checked);

}  // namespace scrim
