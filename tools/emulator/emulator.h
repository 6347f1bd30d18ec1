// emulator/emulator: runs a command in a pseudo-terminal and keeps the screen that a terminal would
// show. Bytes move only within the calls, on the caller's thread.
#pragma once

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
  std::uint32_t code = ' ';  // of Unicode; 0: the right half of a wide character
  bool reverse = false;
  bool underline = false;
};

class Emulator {
 public:
  // Opens the pseudo-terminal. The caller may change its line settings, on terminal(), until
  // start().
  explicit Emulator(const emulator_setup& settings = {});
  // Hangs up, and kills a command that still runs.
  ~Emulator();
  Emulator(const Emulator&) = delete;
  Emulator& operator=(const Emulator&) = delete;

  // Starts the command, found through PATH; standard error is always the pseudo-terminal. To be
  // called once. Returns false when there is no terminal or no process; a command that cannot be
  // executed ends with status 127.
  bool start(const std::vector<std::string>& arguments);

  // Types the bytes. Those that the terminal does not take at once are sent by later calls.
  void send(std::string_view bytes);

  // Waits up to `timeout` ms and reads what the command wrote. Returns whether it wrote something.
  bool pump(int timeout);

  // Pumps until the command has ended or has written nothing for `quiet` ms (ten times as long when
  // the command waits for no key), `limit` ms at most. Returns false at the limit.
  bool settle(int quiet, int limit);

  // Pumps until the command has ended or waits for a key, then settles, each `limit` ms at most:
  // for a command that starts, or starts another one. Returns false when one of the two took
  // longer.
  bool await_key(int quiet, int limit);

  // Whether the command has read all keys and the line settings are those for reading a key without
  // a time limit.
  bool waiting_for_key() const;

  // Closes the terminal; the command gets SIGHUP, as when a connection drops.
  void hang_up();

  // Gives the screen a new size; the command gets SIGWINCH.
  void resize(int rows, int columns);

  bool ended() const { return ended_; }
  int status() const { return status_; }                 // exit code, or 128 + signal number
  pid_t pid() const { return command_; }                 // also the number of its process group
  int terminal() const { return slave_; }                // the command's side; -1: hung up
  const std::string& output() const { return output_; }  // collected standard output
  const std::string& raw() const { return raw_; }        // every byte the terminal received
  bool settings_kept() const;  // the line settings after the end are those before the start

  int rows() const { return rows_; }
  int columns() const { return columns_; }
  screen_cell cell(int row, int column) const;      // outside of the screen a blank
  std::string text(int row, int column = 0) const;  // bytes from the column on, no trailing blanks
  VTermPos cursor() const;                          // row and column
  bool cursor_visible() const { return cursor_visible_; }

  emulator_setup setup;

 private:
  void open_terminal();
  void flush();
  void show(std::string_view bytes);
  bool read_terminal();
  bool read_output();
  void conclude(int status);

  VTerm* vterm_;
  VTermScreen* screen_;
  int rows_;
  int columns_;
  int master_ = -1;     // the emulator's side of the pseudo-terminal
  int slave_ = -1;      // the command's side; open here too, or its end would drop unread output
  int collected_ = -1;  // read end of the standard output pipe
  int control_ = -1;    // socket to the session leader
  pid_t leader_ = -1;
  pid_t command_ = -1;
  bool ended_ = false;
  int status_ = -1;
  bool cursor_visible_ = true;
  termios before_ = {};  // line settings before the start
  termios after_ = {};   // and after the end
  std::string pending_;  // keys that the terminal has not taken yet
  std::string output_;
  std::string raw_;
};

// Milliseconds of a clock that only moves forward.
std::int64_t milliseconds();

// Appends a character of Unicode.
void append_utf8(std::string& text, std::uint32_t code);

}  // namespace scrim
