// tools/check/enter: where Enter leads from the fields of a screen.
#pragma once

#include "tools/check/form.h"

namespace scrim {

// Notes each button that gives up and that Enter reaches from a field.
void check_enter(form& checked);

}  // namespace scrim
