// term/line_settings: reading and applying the line settings of a terminal.
// The System V record holds all that this program changes; where a system has no such record, the
// settings are those of tcgetattr(). A build has one of the two sources.
#pragma once

#include <sys/ioctl.h>
#include <termios.h>

namespace scrim {

#ifdef SCRIM_TERMIOS
using line_settings = termios;
#else
using line_settings = termio;
#endif
using line_flags = decltype(line_settings::c_iflag);  // one of the record's words of flags

// Reads the settings of the terminal that is open as fd. Returns 0, or -1.
int get_line_settings(int fd, line_settings& settings);

// Applies the settings once the terminal has sent what was written to it. Returns 0, or -1.
int set_line_settings(int fd, const line_settings& settings);

}  // namespace scrim
