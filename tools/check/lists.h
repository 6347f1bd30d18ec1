// tools/check/lists: each list of screen files is a form, and is checked in a process of its own,
// as scrim itself is a process for each: the next list finds its variables fresh.
#pragma once

#include "tools/check/findings.h"

namespace scrim {

constexpr int wrong_call = 2;  // exit status: the call, a file that cannot be opened, or no memory

// Adds what is wrong with a list to `found`. Returns false, with a message on standard error, when
// a file of the list cannot be opened, or the check itself fails.
bool check_list(char* list, findings& found);

}  // namespace scrim
