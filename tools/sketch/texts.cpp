// sketch/texts: a text is one as long as its blanks can be painted where it stands.

#include "tools/sketch/texts.h"

#include "tools/sketch/source.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace scrim {

// Whether a text may go on at column `to` with blanks for the cells from `x` to there. They must
// not be painted over a frame; and where the text before is not as wide as it is long, what follows
// would not stand where it is drawn.
static bool goes_on(const picture& seen, const std::string& text, int x, int to, int y) {
  const bool shifts = text.find("${") != std::string::npos || has_other(text);
  for (const extent& frame : seen.undrawn)
    if (y >= frame.y && y < frame.y + frame.h && x < frame.x + frame.w && to > frame.x)
      return false;
  for (; x < to; x++)
    if (is_taken(seen, x, y) &&
        (shifts || std::string_view("+-|").find(at(seen, x, y)) != std::string_view::npos))
      return false;
  return true;
}

static int next_text(const picture& seen, int x, int y) {
  while (x < seen.w && !is_text(seen, x, y)) x++;
  return x;
}

static void check_text(source& from, const picture& seen, const text_run& run, int end) {
  const auto bytes = static_cast<int>(run.text.size());
  if (run.x < first_text_column || run.y < first_text_row)
    report(from, run.drawn, {"no text can stand in the window's first two rows or four columns"});
  if (bytes + run.x - first_text_column > longest_value)
    report(from, run.drawn,
           {"a text that is too long: ", std::to_string(longest_value),
            " bytes a row, from the window's fifth column on"});
  if (run.text.find('}', std::min(run.text.rfind("${"), run.text.size())) == std::string::npos &&
      run.text.find("${") != std::string::npos)
    report(from, run.drawn, {"a reference without its '}'"});
  if (run.x == first_text_column && run.text.starts_with("endtext:"))
    report(from, run.drawn, {"'endtext:' ends a text"});
  for (int x = end; x < std::min(run.x + bytes, seen.w); x++) {
    if (!has_other(run.text) || !is_taken(seen, x, run.y)) continue;
    report(from, place_of(seen, x, run.y),
           {"the text before has ", std::to_string(bytes),
            " bytes, and the program counts bytes: leave more blanks"});
    return;
  }
}

void take_texts(source& from, const picture& seen, sketch& drawn) {
  for (int y = 1; y < seen.h - 1; y++) {
    for (int x = next_text(seen, 1, y); x < seen.w;) {
      text_run run = {x, y, "", place_of(seen, x, y)};
      int end = x, next = x;
      do {
        for (; end < next; end++) run.text += is_taken(seen, end, y) ? blank : cell(seen, end, y);
        while (is_text(seen, end, y)) run.text += cell(seen, end++, y);
        next = next_text(seen, end, y);
      } while (next < seen.w && goes_on(seen, run.text, end, next, y));
      check_text(from, seen, run, end);
      drawn.texts.push_back(run);
      x = next;
    }
  }
}

}  // namespace scrim
