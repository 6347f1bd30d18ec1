// emulator/emulator: runs a command in a pseudo-terminal and keeps the screen that a terminal would
// show. The tests and scrim-drive look through it. All calls work on one thread; pump() moves every
// byte.

#ifndef SCRIM_TOOLS_EMULATOR_H_
#define SCRIM_TOOLS_EMULATOR_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>
#include <termios.h>
#include <vterm.h>

namespace scrim {

// How a command is started. Everything but the size may be changed until start().
struct emulator_setup {
  int rows = 24;
  int columns = 80;
  std::string term = "xterm-256color";
  bool utf8 = false;           // bytes from 0x80 up are UTF-8; else each byte is a cell of its own
  bool controlling = true;     // false: a session without a terminal, "/dev/tty" cannot be opened
  bool nonblocking = false;    // the pseudo-terminal is handed over in non-blocking mode
  int output = -1;             // descriptor for standard output; -1: collected, see output()
  std::string directory = {};  // working directory; empty: the caller's
  std::vector<std::string> environment = {};  // "NAME=value", over the inherited ones
};

struct screen_cell {
  uint32_t code = ' ';  // Unicode; 0: the right half of a wide character
  bool reverse = false;
  bool underline = false;
};

class Emulator {
 public:
  // Opens the pseudo-terminal: its line settings may be changed on terminal() before start().
  explicit Emulator(const emulator_setup& settings = {});
  // Hangs up and kills what still runs.
  ~Emulator();
  Emulator(const Emulator&) = delete;
  Emulator& operator=(const Emulator&) = delete;

  // Runs the command, found through PATH; standard error is always the pseudo-terminal. To be
  // called once. False when there is no terminal or no process to be had; a command that cannot
  // be executed ends with status 127.
  bool start(const std::vector<std::string>& arguments);

  // Types the bytes. What the terminal does not take at once goes out in later pumps.
  void send(std::string_view bytes);

  // Waits up to `timeout` ms and takes in what is there. True when the command wrote something.
  bool pump(int timeout);

  // Pumps until the command has ended, or waits for a key and has written nothing for `quiet` ms;
  // while it waits for no key, ten times as long. At most `limit` ms. False at the limit.
  bool settle(int quiet, int limit);

  // For the start and between programs of a script: pumps until the command has ended or waits for
  // a key, then settles; each at most `limit` ms. False when one of them took longer.
  bool await_key(int quiet, int limit);

  // The command has read all that was sent and stands in an untimed read of single keys.
  bool waiting_for_key() const;

  // Takes the terminal away, as a dropped line does.
  void hang_up();

  // A new size for the screen; the command gets SIGWINCH.
  void resize(int rows, int columns);

  bool ended() const { return ended_; }
  int status() const { return status_; }                 // exit code, or 128 + signal number
  pid_t pid() const { return command_; }                 // also the command's process group
  int terminal() const { return slave_; }                // the command's side; -1: hung up
  const std::string& output() const { return output_; }  // collected standard output
  const std::string& raw() const { return raw_; }        // every byte the terminal received
  bool settings_kept() const;                            // line settings after as before

  int rows() const { return rows_; }
  int columns() const { return columns_; }
  screen_cell cell(int row, int column) const;      // a blank outside of the screen
  std::string text(int row, int column = 0) const;  // bytes from the column on, no trailing blanks
  VTermPos cursor() const;                          // row and column
  bool cursor_visible() const { return cursor_visible_; }

  emulator_setup setup;

 private:
  void open_terminal();
  bool read_terminal();
  bool read_output();
  void conclude(int status);
  void flush();
  void feed(std::string_view bytes);

  VTerm* vterm_;
  VTermScreen* screen_;
  int rows_, columns_;
  int master_ = -1;
  int slave_ = -1;      // kept open, so that nothing the command wrote is lost at its end
  int collected_ = -1;  // read end of the standard output pipe
  int control_ = -1;    // to the session leader
  pid_t leader_ = -1;
  pid_t command_ = -1;
  bool ended_ = false;
  int status_ = -1;
  bool cursor_visible_ = true;
  termios before_ = {};
  termios after_ = {};
  std::string pending_;
  std::string output_;
  std::string raw_;
};

// Milliseconds of a clock that only moves forward.
int64_t milliseconds();

void append_utf8(std::string& text, uint32_t code);

}  // namespace scrim

#endif  // SCRIM_TOOLS_EMULATOR_H_
