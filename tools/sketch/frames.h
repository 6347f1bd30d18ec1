// sketch/frames: the frames inside of the window: boxes and scroll windows.
#pragma once

#include "tools/sketch/picture.h"

namespace scrim {

// Takes all frames; one with a file's name in its upper edge is a scroll window.
void take_frames(source& from, picture& seen, sketch& drawn);

}  // namespace scrim
