// drive/key_script: what scrim-drive types. Text stands for itself, <Name> for a key of the
// terminal. A fault in a script ends the program here: nothing has been started yet.

#ifndef SCRIM_TOOLS_KEY_SCRIPT_H_
#define SCRIM_TOOLS_KEY_SCRIPT_H_

#include <string>
#include <vector>

namespace scrim {

constexpr int own_failure = 125;   // exit status; what a command itself hardly ever ends with
constexpr int most_time = 600000;  // ms, the longest wait that can be asked for

struct key_step {
  enum Kind { type, wait, shot } kind;
  std::string bytes;  // of type
  int time;           // ms, of wait
};

// Plain text up to the next name is one step. Line breaks and the indents behind them only lay the
// script out. The keys' bytes are those of the description of the terminal `term`.
std::vector<key_step> steps_of(std::string script, const std::string& term);

// The decimal number that is all of the text; ends the program when it is not from least to most.
int number_in(const std::string& text, int least, int most);

// Prints the message and ends the program with own_failure.
[[noreturn]] void give_up(const std::string& message);

}  // namespace scrim

#endif  // SCRIM_TOOLS_KEY_SCRIPT_H_
