// term/settings_termio: the line settings as the System V record.

#include "term/line_settings.h"

namespace scrim {

int get_line_settings(int fd, line_settings& settings) { return ioctl(fd, TCGETA, &settings); }

int set_line_settings(int fd, const line_settings& settings) {
  return ioctl(fd, TCSETAW, &settings);
}

}  // namespace scrim
