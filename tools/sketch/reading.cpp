// sketch/reading: the legend is read before the gadgets, which it explains; frames are taken first,
// then gadgets, and what remains is text.

#include "tools/sketch/reading.h"

#include "common/text.h"
#include "screens/reader.h"
#include "tools/sketch/brackets.h"
#include "tools/sketch/defaults.h"
#include "tools/sketch/explaining.h"
#include "tools/sketch/frames.h"
#include "tools/sketch/legend.h"
#include "tools/sketch/picture.h"
#include "tools/sketch/source.h"
#include "tools/sketch/texts.h"

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace scrim {

void read_inside(source& from, picture& seen, sketch& drawn,
                 const std::function<bool(std::string_view)>& is_button) {
  take_frames(from, seen, drawn);
  take_gadgets(from, seen, drawn, is_button);
  take_texts(from, seen, drawn);
}

// A screen file's line ends at its first NUL.
static void check_lines(source& from) {
  for (std::size_t i = 0; i < from.lines.size(); i++) {
    const std::string_view line = from.lines[i];
    const std::size_t end = line.find('\0');
    if (end == std::string_view::npos) continue;
    const auto column = static_cast<int>(cells_of(line.substr(0, end)).size()) + 1;
    report(from, {static_cast<int>(i) + 1, column}, {"a NUL, at which the line would end"});
  }
}

// Notes the frames that the legend has as lines of the screen file: no text may be painted over
// them.
static void note_frames(const legend& below, picture& seen) {
  for (const entry& it : below.entries) {
    for (const std::string& line : it.lines) {
      const bool frame =
          line.starts_with("swin") || line.starts_with("dswin") || line.starts_with("box:");
      const char* numbers = frame ? first_item(line.c_str()) : nullptr;
      std::array<int, 4> cells = {};
      if (numbers && read_numbers(numbers, ",,,", cells.data()) == 4)
        seen.undrawn.push_back({cells[0], cells[1], cells[2], cells[3]});
    }
  }
}

sketch read_sketch(source& from) {
  sketch drawn;
  picture seen;
  check_lines(from);
  if (!find_frame(from, seen, drawn)) return drawn;
  const legend below = read_legend(from, seen.top + seen.h);
  note_frames(below, seen);
  read_inside(from, seen, drawn,
              [&](std::string_view label) { return names_button(below, label); });
  apply_legend(from, below, drawn);
  complete(from, drawn);
  return drawn;
}

}  // namespace scrim
