// sketch/texts: the texts of a picture.
#pragma once

#include "tools/sketch/picture.h"

namespace scrim {

// Takes what is left of a picture, which is text.
void take_texts(source& from, const picture& seen, sketch& drawn);

}  // namespace scrim
