// tools/check/line_rules: what can be said of a line of a screen file as soon as it is read.
#pragma once

#include "tools/check/form.h"

#include <string_view>
#include <vector>

namespace scrim {

// What a directive's line needs besides its numbers, which scrim's own table names.
enum {
  sets_window = 1,
  in_window = 2,  // means something only in a window
  is_block = 4,   // lines up to endtext: follow
  or_cursor = 8   // the word "cursor" may stand for the number
};
struct rule {
  std::string_view keyword;                // as in scrim's table of directives
  int traits;                              // of those above
  void (*items)(form& checked, int line);  // judges the items of a line that is taken; or null
  void (*after)(form& checked, int line);  // judges what good numbers have become; or null
};
extern const std::vector<rule> rules;

// Loads the file of screen `curscreen` and checks it line by line. Returns false, with a message on
// standard error, when the file cannot be opened.
bool check_lines(form& checked);

}  // namespace scrim
