// term/tty: the three descriptors of the program, the line settings, and the functions through
// which all bytes reach the terminal.

#include "term/tty.h"

#include <cerrno>
#include <csignal>
#include <cstdio>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#define NCURSES_NOMACROS
#include <curses.h>
#include <term.h>

namespace scrim {

int tfd = -1;
int tty_fd = 0;
line_settings terminal_old;
line_settings terminal_new;
int ttym = 0;
int stdin_flag = 0;
int debug_flag = 0;
int ftimeout = 1;
char* T_KEYXMIT = nullptr;
char* T_KEYLOCAL = nullptr;

static bool raw = false;
static bool keypad_transmits = false;
static bool output_waits = true;  // writes to the terminal block by themselves
static bool output_lost = false;  // the terminal is gone: nothing more is written

// A reader that has gone, or a full file, must not end the program while the terminal is raw: the
// signals wait until the user's settings are back.
static void hold_write_signals(int how) {
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, SIGPIPE);
  sigaddset(&set, SIGXFSZ);
  sigprocmask(how, &set, nullptr);
}

static void set_read_mode(unsigned char vmin, unsigned char vtime) {
  if (terminal_new.c_cc[VMIN] == vmin && terminal_new.c_cc[VTIME] == vtime) return;
  terminal_new.c_cc[VMIN] = vmin;
  terminal_new.c_cc[VTIME] = vtime;
  set_line_settings(tfd, terminal_new);
}

void read_blocking() { set_read_mode(1, 0); }
void read_timed() { set_read_mode(0, static_cast<unsigned char>(ftimeout)); }

int setup_ttymode() {
  if (tfd == -1) {
    tfd = open("/dev/tty", O_RDWR | O_CLOEXEC);
    if (tfd == -1) return 1;
    if (stdin_flag) tty_fd = tfd;
    get_line_settings(tfd, terminal_old);
    terminal_new = terminal_old;
    output_waits = (fcntl(STDERR_FILENO, F_GETFL) & O_NONBLOCK) == 0;
  }
  if (debug_flag) {
    printf("IFLAG = %xx\n\r", static_cast<unsigned>(terminal_old.c_iflag));
    fflush(stdout);
  }
  terminal_new.c_iflag &= static_cast<line_flags>(~ICRNL);
  terminal_new.c_oflag = 0;
  terminal_new.c_cc[VMIN] = 1;
  terminal_new.c_cc[VTIME] = 0;
  terminal_new.c_cflag &= static_cast<line_flags>(~PARENB);
  terminal_new.c_cflag |= CS8;
  terminal_new.c_lflag = 0;
  hold_write_signals(SIG_BLOCK);
  set_line_settings(tfd, terminal_new);
  raw = true;
  return 0;
}

bool is_raw() { return raw; }

int restore_ttymode() {
  if (keypad_transmits) M_putp(T_KEYLOCAL);
  keypad_transmits = false;
  if (ttym) reset_shell_mode();
  ttym = 0;
  raw = false;
  const int result = set_line_settings(tfd, terminal_old);
  hold_write_signals(SIG_UNBLOCK);
  return result;
}

void keypad_on() {
  if (keypad_transmits) return;
  keypad_transmits = true;
  M_putp(T_KEYXMIT);
}

// Another program that shares the descriptor may have made it non-blocking: then a write is refused
// while the line is busy or stopped, and this function waits. A line that is gone counts as ready:
// the next write fails.
static bool await_output() {
  pollfd output = {STDERR_FILENO, POLLOUT, 0};
  return poll(&output, 1, -1) == 1;
}

int m_out(char c) { return putc(c, stderr); }

static int put_character(int c) { return m_out(static_cast<char>(c)); }

int M_putp(const char* s) {
  if (!s) return 0;
  if (output_lost) return EOF;
  tputs(s, 1, put_character);
  if (!output_waits) await_output();
  const int status = fflush(stderr);
  output_lost = status != 0 && errno == EIO;
  return status;
}

int write_terminal(const char* bytes, std::size_t n) {
  if (output_lost) return -1;
  for (std::size_t done = 0; done < n;) {
    const ssize_t written = write(STDERR_FILENO, bytes + done, n - done);
    if (written > 0) {
      done += static_cast<std::size_t>(written);
    } else if (written == 0 || (errno != EINTR && !(errno == EAGAIN && await_output()))) {
      output_lost = written < 0 && errno == EIO;
      return -1;
    }
  }
  return static_cast<int>(n);
}

}  // namespace scrim
