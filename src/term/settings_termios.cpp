// term/settings_termios: the line settings as every system has them.

#include "term/line_settings.h"

namespace scrim {

int get_line_settings(int fd, line_settings& settings) { return tcgetattr(fd, &settings); }

int set_line_settings(int fd, const line_settings& settings) {
  return tcsetattr(fd, TCSADRAIN, &settings);
}

}  // namespace scrim
