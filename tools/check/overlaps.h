// tools/check/overlaps: gadgets of a screen that cover each other.
#pragma once

#include "tools/check/form.h"

namespace scrim {

// Reports each gadget that covers one declared before it, of those the first.
void check_overlaps(form& checked);

}  // namespace scrim
