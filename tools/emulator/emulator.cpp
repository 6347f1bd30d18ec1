// emulator/emulator: the command runs in a session of its own. The session's leader is a process
// that lives until the emulator closes the socket to it: the end of a leader hangs the terminal up,
// which resets the line settings and drops unread output.

#include "tools/emulator/emulator.h"

#include "common/program.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <iterator>

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#if __has_include(<sys/prctl.h>)
#include <sys/prctl.h>
#endif

extern "C" char** environ;  // not every system's headers declare it

namespace scrim {

// Bytes 0x80 to 0x9F would be control characters to libvterm: it is given private-use characters,
// this much higher, in their place.
static const std::uint32_t c1_shift = 0xE000;
static const int last_reads = 1024;  // after the command's end: what it started may write for ever

// What the leader ignores and the command does not.
static const int terminal_signals[] = {SIGHUP, SIGINT, SIGQUIT, SIGPIPE, SIGTSTP, SIGTTIN, SIGTTOU};

static bool is_c1(std::uint32_t code) { return code >= 0x80 && code <= 0x9F; }

static void close_descriptor(int& descriptor) {
  if (descriptor >= 0) close(descriptor);
  descriptor = -1;
}

// Two joined descriptors that the command does not inherit.
static bool make_pair(int (&pair)[2], bool both_ways) {
  if ((both_ways ? socketpair(AF_UNIX, SOCK_STREAM, 0, pair) : pipe(pair)) != 0) return false;
  for (int descriptor : pair) fcntl(descriptor, F_SETFD, FD_CLOEXEC);
  return true;
}

static bool same_settings(const termios& left, const termios& right) {
  return left.c_iflag == right.c_iflag && left.c_oflag == right.c_oflag &&
         left.c_cflag == right.c_cflag && left.c_lflag == right.c_lflag &&
         std::equal(std::begin(left.c_cc), std::end(left.c_cc), std::begin(right.c_cc));
}

static bool is_replaced(const char* variable, const std::vector<std::string>& replacements) {
  for (const char* dropped : {"LINES=", "COLUMNS=", "LANG=", "LC_", "TERM="})
    if (std::strncmp(variable, dropped, std::strlen(dropped)) == 0) return true;
  return std::any_of(replacements.begin(), replacements.end(), [&](const std::string& other) {
    return std::strncmp(variable, other.c_str(), other.find('=') + 1) == 0;
  });
}

static std::vector<std::string> environment_of(const emulator_setup& setup) {
  std::vector<std::string> result = {"TERM=" + setup.term, "LANG=C",
                                     setup.utf8 ? "LC_ALL=C.UTF-8" : "LC_ALL=C"};
  for (char** variable = environ; *variable; variable++)
    if (!is_replaced(*variable, setup.environment)) result.emplace_back(*variable);
  result.insert(result.end(), setup.environment.begin(), setup.environment.end());
  return result;
}

// The texts as execvp() takes them.
static std::vector<char*> pointers(const std::vector<std::string>& texts) {
  std::vector<char*> result;
  result.reserve(texts.size() + 1);
  for (const std::string& text : texts) result.push_back(const_cast<char*>(text.c_str()));
  result.push_back(nullptr);
  return result;
}

// What the leader and the command need of the emulator.
struct session {
  const emulator_setup& setup;
  const std::vector<std::string>& arguments;
  int slave;
  int output;   // the command's standard output
  int control;  // the leader's end of the socket
};

[[noreturn]] static void execute(const session& own) {
  const emulator_setup& setup = own.setup;
  setpgid(0, 0);
  if (setup.controlling) tcsetpgrp(own.slave, getpid());
  for (int number : terminal_signals) signal(number, SIG_DFL);
  dup2(own.slave, STDIN_FILENO);
  dup2(own.output, STDOUT_FILENO);
  dup2(own.slave, STDERR_FILENO);
  if (!setup.directory.empty() && chdir(setup.directory.c_str()) != 0) _exit(127);
  const std::vector<std::string> variables = environment_of(setup);
  std::vector<char*> environment = pointers(variables), arguments = pointers(own.arguments);
  environ = environment.data();
  execvp(arguments[0], arguments.data());
  complain({arguments[0], ": ", std::strerror(errno)});
  fflush(stderr);
  _exit(127);
}

// Sends a number to the emulator. Returns whether the emulator took it.
static bool report(int control, int value) {
  return write(control, &value, sizeof value) == sizeof value;
}

// The session's leader: reports the command's process number, then the command's wait status, and
// ends when the emulator closes its end of the socket.
[[noreturn]] static void lead(const session& own) {
#ifdef PR_SET_PDEATHSIG
  prctl(PR_SET_PDEATHSIG, SIGKILL);  // the end of the leader hangs the command up
#endif
  setsid();
  if (own.setup.controlling) ioctl(own.slave, TIOCSCTTY, 0);
  if (own.setup.nonblocking) fcntl(own.slave, F_SETFL, O_RDWR | O_NONBLOCK);
  for (int number : terminal_signals) signal(number, SIG_IGN);
  const pid_t command = fork();
  if (command == 0) execute(own);
  if (own.output != own.setup.output) close(own.output);
  int status = 0;
  bool heard = report(own.control, command);
  while (waitpid(command, &status, 0) < 0 && errno == EINTR) continue;
  heard = heard && report(own.control, status);
  while (heard && read(own.control, &status, sizeof status) != 0) continue;
  _exit(0);
}

std::int64_t milliseconds() {
  timespec now;
  clock_gettime(CLOCK_MONOTONIC, &now);
  return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1000000;
}

void append_utf8(std::string& text, std::uint32_t code) {
  int shift = code < 0x80 ? 0 : code < 0x800 ? 6 : code < 0x10000 ? 12 : 18;
  static const std::uint32_t lead_bits[] = {0, 0xC0, 0xE0, 0xF0};
  text += static_cast<char>(lead_bits[shift / 6] | (code >> shift));
  while ((shift -= 6) >= 0) text += static_cast<char>(0x80 | ((code >> shift) & 0x3F));
}

Emulator::Emulator(const emulator_setup& settings)
    : setup(settings), rows_(settings.rows), columns_(settings.columns) {
  vterm_ = vterm_new(rows_, columns_);
  vterm_set_utf8(vterm_, 1);
  static VTermScreenCallbacks callbacks = {};
  callbacks.settermprop = [](VTermProp property, VTermValue* value, void* self) {
    if (property == VTERM_PROP_CURSORVISIBLE)
      static_cast<Emulator*>(self)->cursor_visible_ = value->boolean != 0;
    return 1;
  };
  screen_ = vterm_obtain_screen(vterm_);
  vterm_screen_set_callbacks(screen_, &callbacks, this);
  vterm_screen_enable_altscreen(screen_, 1);
  vterm_screen_reset(screen_, 1);
  vterm_output_set_callback(
      vterm_,
      [](const char* bytes, std::size_t length, void* self) {
        static_cast<Emulator*>(self)->send({bytes, length});
      },
      this);
  open_terminal();
}

Emulator::~Emulator() {
  hang_up();
  if (leader_ > 0) {
    if (!ended_) kill(-command_, SIGKILL);
    close_descriptor(control_);
    while (waitpid(leader_, nullptr, 0) < 0 && errno == EINTR) continue;
  }
  close_descriptor(collected_);
  vterm_free(vterm_);
}

void Emulator::open_terminal() {
  master_ = posix_openpt(O_RDWR | O_NOCTTY);
  if (master_ < 0 || grantpt(master_) != 0 || unlockpt(master_) != 0) return;
  fcntl(master_, F_SETFD, FD_CLOEXEC);
  fcntl(master_, F_SETFL, O_RDWR | O_NONBLOCK);
  const char* name = ptsname(master_);
  if (!name) return;
  slave_ = open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
  resize(rows_, columns_);
}

bool Emulator::start(const std::vector<std::string>& arguments) {
  int control[2], output[2] = {-1, setup.output};
  if (slave_ < 0 || arguments.empty() || tcgetattr(slave_, &before_) != 0 ||
      !make_pair(control, true))
    return false;
  control_ = control[0];
  if (setup.output < 0 && !make_pair(output, false)) return false;
  collected_ = output[0];
  leader_ = fork();
  if (leader_ == 0) {
    close(master_);
    close(control_);
    if (collected_ >= 0) close(collected_);
    lead({setup, arguments, slave_, output[1], control[1]});
  }
  close(control[1]);
  if (setup.output < 0) close(output[1]);
  if (collected_ >= 0) fcntl(collected_, F_SETFL, O_NONBLOCK);
  return leader_ > 0 && read(control_, &command_, sizeof command_) == sizeof command_ &&
         command_ > 0;
}

void Emulator::send(std::string_view bytes) {
  pending_ += bytes;
  flush();
}

void Emulator::flush() {
  if (pending_.empty() || master_ < 0) return;
  ssize_t written = write(master_, pending_.data(), pending_.size());
  if (written > 0) pending_.erase(0, static_cast<std::size_t>(written));
}

void Emulator::show(std::string_view bytes) {
  raw_ += bytes;
  std::string text;
  for (const char byte : bytes) {
    const auto code = static_cast<unsigned char>(byte);
    if (setup.utf8 || code < 0x80) {
      text += byte;
    } else {
      append_utf8(text, is_c1(code) ? c1_shift + code : code);
    }
  }
  vterm_input_write(vterm_, text.data(), text.size());
}

bool Emulator::read_terminal() {
  char buffer[4096];
  ssize_t length = master_ < 0 ? -1 : read(master_, buffer, sizeof buffer);
  if (length <= 0) return false;
  show({buffer, static_cast<std::size_t>(length)});
  return true;
}

bool Emulator::read_output() {
  char buffer[4096];
  ssize_t length = collected_ < 0 ? -1 : read(collected_, buffer, sizeof buffer);
  if (length == 0) close_descriptor(collected_);
  if (length <= 0) return false;
  output_.append(buffer, static_cast<std::size_t>(length));
  return true;
}

// All that the command wrote is in the kernel by now and can be read without waiting.
void Emulator::conclude(int status) {
  ended_ = true;
  status_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  for (int i = 0; i < last_reads; i++) {
    const bool came = read_terminal();
    if (!read_output() && !came) break;
  }
  if (slave_ >= 0) tcgetattr(slave_, &after_);
}

bool Emulator::pump(int timeout) {
  flush();
  pollfd watched[] = {
      {master_, static_cast<short>(pending_.empty() ? POLLIN : POLLIN | POLLOUT), 0},
      {collected_, POLLIN, 0},
      {ended_ ? -1 : control_, POLLIN, 0},
  };
  if (poll(watched, 3, timeout) <= 0) return false;
  bool came = read_terminal();
  came = read_output() || came;
  if (watched[2].revents == 0) return came;
  int status = 0;
  if (read(control_, &status, sizeof status) != sizeof status) status = SIGKILL;
  conclude(status);
  return true;
}

bool Emulator::waiting_for_key() const {
  termios now;
  int unread = 0;
  if (!pending_.empty() || tcgetattr(slave_, &now) != 0 || ioctl(slave_, FIONREAD, &unread) != 0)
    return false;
  const bool timed = now.c_cc[VMIN] == 0 && now.c_cc[VTIME] > 0;
  return unread == 0 && (now.c_lflag & ICANON) == 0 && !timed;
}

bool Emulator::settle(int quiet, int limit) {
  const std::int64_t deadline = milliseconds() + limit;
  std::int64_t last = milliseconds();
  while (!ended_) {
    const bool came = pump(std::max(1, quiet / 4));
    const std::int64_t now = milliseconds();
    if (came) last = now;
    if (now - last >= (waiting_for_key() ? quiet : 10 * quiet)) break;
    if (now >= deadline) return false;
  }
  return true;
}

bool Emulator::await_key(int quiet, int limit) {
  const std::int64_t deadline = milliseconds() + limit;
  while (!ended_ && !waiting_for_key()) {
    if (milliseconds() >= deadline) return false;
    pump(quiet);
  }
  return settle(quiet, limit);
}

// When a connection drops, the session leader gets the signal, and a shell sends it on to its
// foreground job. The command is stopped meanwhile: it must have the signal before it reads from
// the closed terminal.
void Emulator::hang_up() {
  const bool signalled = setup.controlling && command_ > 0 && !ended_;
  if (signalled) kill(-command_, SIGSTOP);
  close_descriptor(slave_);
  close_descriptor(master_);
  if (signalled) kill(-command_, SIGHUP);
  if (signalled) kill(-command_, SIGCONT);
}

void Emulator::resize(int rows, int columns) {
  const winsize size = {static_cast<unsigned short>(rows), static_cast<unsigned short>(columns), 0,
                        0};
  ioctl(master_, TIOCSWINSZ, &size);
  rows_ = rows;
  columns_ = columns;
  vterm_set_size(vterm_, rows, columns);
}

bool Emulator::settings_kept() const { return slave_ < 0 || same_settings(before_, after_); }

screen_cell Emulator::cell(int row, int column) const {
  VTermScreenCell cell;
  if (row < 0 || row >= rows_ || column < 0 || column >= columns_ ||
      vterm_screen_get_cell(screen_, {row, column}, &cell) == 0)
    return {};
  std::uint32_t code = cell.chars[0];
  if (code == 0) code = ' ';
  if (code == static_cast<std::uint32_t>(-1)) code = 0;
  return {code, cell.attrs.reverse != 0, cell.attrs.underline != 0};
}

std::string Emulator::text(int row, int column) const {
  std::string text;
  for (; column < columns_; column++) {
    const std::uint32_t code = cell(row, column).code;
    const bool is_byte = code < 0x100 || (code >= c1_shift && is_c1(code - c1_shift));
    if (is_byte && !setup.utf8) {
      text += static_cast<char>(code & 0xFF);
    } else if (code != 0) {
      append_utf8(text, code);
    }
  }
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

VTermPos Emulator::cursor() const {
  VTermPos position;
  vterm_state_get_cursorpos(vterm_obtain_state(vterm_), &position);
  return position;
}

}  // namespace scrim
