// term/endings: the error pop-up, the endings that it announces, and memory, whose lack is one.
// This room stands above the keys because the pop-up waits for one.
#pragma once

#include <cstddef>

namespace scrim {

// Shows s in a framed pop-up and waits for one key, which is dropped; the end of input counts as
// one. The pop-up stays on the screen. Before the terminal is set up, sets it up; where that
// cannot be, writes s as one line to standard error and does not wait. Returns 0.
int error_pop(const char* s);

// Shows s with error_pop and ends the program through win_exit with `status`.
[[noreturn]] void end_with(const char* s, int status);

// n zeroed bytes; without memory for them, ends with the message and status (see keep_reserve).
void* allocate(std::size_t n, const char* complaint, int status);

}  // namespace scrim
