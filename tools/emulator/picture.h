// emulator/picture: the emulator's screen as text and as SVG. The same screen always gives the same
// bytes.

#ifndef SCRIM_TOOLS_PICTURE_H_
#define SCRIM_TOOLS_PICTURE_H_

#include "tools/emulator/emulator.h"

#include <string>

namespace scrim {

// The rows without trailing blanks, without the empty ones at the end.
std::string text_picture(const Emulator& emulator);

// All cells, with reverse, underline and the cursor.
std::string svg_picture(const Emulator& emulator);

}  // namespace scrim

#endif  // SCRIM_TOOLS_PICTURE_H_
