// term/built_in: descriptions of the usual terminals inside the program, for a machine that has
// none. A part of the programs that need no other file (SCRIM_STATIC).
#pragma once

namespace scrim {

// A terminal type, and the variable from which the library takes a description as it takes one from
// a file: TERMINFO, its value "b64:" and the compiled description in base 64.
struct built_in_description {
  const char* type;
  const char* variable;
};

// The descriptions that the build has made, to a row without a type. Empty in scrim-check, which
// opens no terminal.
extern const built_in_description built_in_descriptions[];

// Calls `look_up`, which asks the library for the description of the type in TERM, with the
// built-in one in the environment for as long. Returns what `look_up` returns; false when there is
// none.
bool find_built_in(bool (*look_up)());

}  // namespace scrim
