// sketch/reading: the legend is read before the picture, which it explains.

#include "tools/sketch/reading.h"

#include "tools/sketch/defaults.h"
#include "tools/sketch/legend.h"
#include "tools/sketch/picture.h"
#include "tools/sketch/source.h"

#include <string_view>

namespace scrim {

sketch read_sketch(source& from) {
  sketch drawn;
  picture seen;
  if (!find_frame(from, seen, drawn)) return drawn;
  const legend below = read_legend(from, seen.top + seen.h);
  read_picture(from, seen, drawn,
               [&](std::string_view label) { return names_button(below, label); });
  apply_legend(from, below, drawn);
  complete(from, drawn);
  return drawn;
}

}  // namespace scrim
