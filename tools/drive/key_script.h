// drive/key_script: what scrim-drive types and when, and its numbers. A fault in a script or a
// number ends the program: it has started nothing yet.
#pragma once

#include <string>
#include <vector>

namespace scrim {

constexpr int own_failure = 125;   // exit status that hardly any command ends with
constexpr int most_time = 600000;  // ms, the longest wait that can be asked for

enum step_kind { type_keys, wait_a_time, take_shot };

struct key_step {
  step_kind kind;
  int time;           // ms: how long a wait takes, and how long a film shows what a step led to
  std::string keys;   // of type_keys: as the script has them
  std::string bytes;  // and as the terminal sends them
};

// The steps of a key script: a text (or each of its characters), a key, a <wait> or a <shot>. Line
// breaks, and the blanks that indent the line behind, only lay the script out.
enum text_pace { at_once, by_character };
std::vector<key_step> steps_of(std::string script, const std::string& term, text_pace pace);

// The decimal number that is all of the text; ends the program when it is not from least to most.
int number_in(const std::string& text, int least, int most);

// Prints the message and ends the program with own_failure.
[[noreturn]] void give_up(const std::string& message);

}  // namespace scrim
