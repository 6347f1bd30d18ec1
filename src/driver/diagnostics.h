// driver/diagnostics: what the program makes of a terminal: its keys, and its capabilities.
// Both report on standard output, so that a report can be kept in a file.
#pragma once

namespace scrim {

// Shows on standard output the code of each key pressed, until escape; then ends the program with
// status 0.
[[noreturn]] void key_test();

// Writes the capability strings byte by byte to standard output and shows a sample of the
// line-drawing characters; then ends the program with status 0.
[[noreturn]] void capability_dump();

// Prints the label `s` and the first n bytes of `cp` in hexadecimal. Returns 0.
int dumpit(const char* s, const char* cp, int n);

}  // namespace scrim
