// sketch/brackets: the gadgets of a picture, which stand in brackets.
#pragma once

#include "tools/sketch/picture.h"

#include <functional>
#include <string_view>

namespace scrim {

// Takes all gadgets. `is_button` tells whether a text in brackets that has no hot key is the label
// of a button.
void take_gadgets(source& from, picture& seen, sketch& drawn,
                  const std::function<bool(std::string_view)>& is_button);

}  // namespace scrim
