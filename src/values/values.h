// values: named texts from the environment and from the defaults file, and their substitution
// into the lines of screen files.
#pragma once

#include <cstddef>
#include <string_view>

namespace scrim {

constexpr std::size_t value_name_size = 20;  // bytes of a stored value's name, its NUL included

// One stored value.
struct env_list {
  env_list* next;  // the next older one
  char name[value_name_size];
  char text[1024];
};

extern env_list* env_lp;  // the newest value; null: none yet
extern int envcnt;        // values stored from the defaults file so far, and the next one's name

// The text of the value called `name`: the one stored last; else the environment's, which is stored
// then; else an empty text. A name too long to be stored is looked up in the environment each time.
// Without memory the program ends with a message and status 2.
const char* get_an_env(std::string_view name);

// Stores `line` (cut to 1023 bytes) as the value named by the decimal form of `envcnt`, and counts
// it. Without memory the program ends with a message and status 2.
void set_alt_an_env(const char* line);

// Writes `text` into tbuf, cut to 1023 bytes, with each ${name} replaced by its value, each pair
// of backslashes by one, and each other character after a backslash marked with its top bit.
void env_substitute(const char* text);

}  // namespace scrim
