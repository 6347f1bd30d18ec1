// drive/key_script: the names that stand for no key, <wait> and <shot>, are scrim-drive's own.

#include "tools/drive/key_script.h"

#include "common/program.h"
#include "tools/emulator/key_names.h"

#include <cstddef>
#include <cstdlib>

namespace scrim {

static const int default_wait = 500;  // ms of a <wait> without a number

[[noreturn]] void give_up(const std::string& message) {
  complain({"scrim-drive: ", message});
  exit(own_failure);
}

int number_in(const std::string& text, int least, int most) {
  char* end = nullptr;
  const long number = strtol(text.c_str(), &end, 10);
  if (text.empty() || *end || number < least || number > most)
    give_up("not a number from " + std::to_string(least) + " to " + std::to_string(most) + ": " +
            text);
  return static_cast<int>(number);
}

static key_step step_of(const std::string& piece, const std::string& term) {
  if (piece == "<shot>") return {take_shot, "", 0};
  if (piece == "<wait>") return {wait_a_time, "", default_wait};
  if (piece.starts_with("<wait:") && piece.ends_with('>'))
    return {wait_a_time, "", number_in(piece.substr(6, piece.size() - 7), 0, most_time)};
  const typed_bytes typed = bytes_of(piece, term);
  if (!typed.fault.empty()) give_up(typed.fault);
  return {type_keys, typed.bytes, 0};
}

static void leave_layout_out(std::string& script) {
  for (std::size_t at = 0; (at = script.find('\n', at)) != std::string::npos;)
    script.erase(at, script.find_first_not_of(" \t\n", at) - at);
}

std::vector<key_step> steps_of(std::string script, const std::string& term) {
  leave_layout_out(script);
  std::vector<key_step> steps;
  for (const std::string& piece : pieces_of(script)) steps.push_back(step_of(piece, term));
  return steps;
}

}  // namespace scrim
