// sketch/reading: the legend is read before the gadgets, which it explains; frames are taken first,
// then gadgets, and what remains is text.

#include "tools/sketch/reading.h"

#include "tools/sketch/brackets.h"
#include "tools/sketch/defaults.h"
#include "tools/sketch/explaining.h"
#include "tools/sketch/frames.h"
#include "tools/sketch/legend.h"
#include "tools/sketch/picture.h"
#include "tools/sketch/source.h"
#include "tools/sketch/texts.h"

#include <functional>
#include <string_view>

namespace scrim {

void read_inside(source& from, picture& seen, sketch& drawn,
                 const std::function<bool(std::string_view)>& is_button) {
  take_frames(from, seen, drawn);
  take_gadgets(from, seen, drawn, is_button);
  take_texts(from, seen, drawn);
}

sketch read_sketch(source& from) {
  sketch drawn;
  picture seen;
  if (!find_frame(from, seen, drawn)) return drawn;
  const legend below = read_legend(from, seen.top + seen.h);
  read_inside(from, seen, drawn,
              [&](std::string_view label) { return names_button(below, label); });
  apply_legend(from, below, drawn);
  complete(from, drawn);
  return drawn;
}

}  // namespace scrim
