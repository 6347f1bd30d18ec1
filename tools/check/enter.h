// tools/check/enter: where Enter leads from the fields of a screen.
#pragma once

#include "tools/check/form.h"

#include <string>

namespace scrim {

// Notes each button that gives up and that Enter reaches from a field.
void check_enter(form& checked);

// Whether a word, in small or capital letters, is one for giving up: "cancel", "quit".
bool is_word_for_giving_up(std::string word);

}  // namespace scrim
