// term/endings: the error pop-up, the endings that it announces, and memory, whose lack is one.
// This room stands above the keys because the pop-up waits for a key.
#pragma once

#include <cstddef>

namespace scrim {

// Shows s in a framed pop-up and waits for one key, which is dropped; the end of input counts as a
// key. The pop-up stays on the screen. Where the terminal is not set up yet, it is set up first;
// where it cannot be, s goes as a line to standard error, and no key is waited for. Returns 0.
int error_pop(const char* s);

// Shows s with error_pop and ends the program through win_exit with `status`.
[[noreturn]] void end_with(const char* s, int status);

// n zeroed bytes. Where memory has run out, ends the program with the message and the status.
void* allocate(std::size_t n, const char* complaint, int status);

}  // namespace scrim
