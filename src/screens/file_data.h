// screens/file_data: the file that a scroll window shows, read once.
// The data stay in memory as they are; who shows them finds the lines.
#pragma once

#include "screens/model.h"

namespace scrim {

// Reads a file into the scroll window's data, up to its first NUL, and counts its lines. A file
// that tells its size is read up to the size it had at first, anything else to its end. Returns
// false when it cannot be opened or read; without memory the program ends with a message and
// status 3.
bool read_file_data(gadget_list& swin, const char* path);

// The NUL that ends the data of a scroll window.
const char* data_end(const gadget_list& swin);

}  // namespace scrim
