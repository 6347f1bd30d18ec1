// drive/key_script: the names that stand for no key, <wait> and <shot>, are scrim-drive's own.

#include "tools/drive/key_script.h"

#include "common/program.h"
#include "tools/emulator/key_names.h"

#include <cstddef>
#include <cstdlib>

namespace scrim {

static const int default_wait = 500;  // ms of a <wait> without a number

// In ms, how long a film shows what a character led to, and what a key with a name did.
static const int character_time = 80, key_time = 800;

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
  if (piece == "<shot>") return {take_shot, 0, "", ""};
  if (piece == "<wait>") return {wait_a_time, default_wait, "", ""};
  if (piece.starts_with("<wait:") && piece.ends_with('>'))
    return {wait_a_time, number_in(piece.substr(6, piece.size() - 7), 0, most_time), "", ""};
  const typed_bytes typed = bytes_of(piece, term);
  if (!typed.fault.empty()) give_up(typed.fault);
  return {type_keys, piece.starts_with('<') ? key_time : character_time, piece, typed.bytes};
}

static void leave_layout_out(std::string& script) {
  for (std::size_t at = 0; (at = script.find('\n', at)) != std::string::npos;)
    script.erase(at, script.find_first_not_of(" \t\n", at) - at);
}

static std::vector<std::string> parts_of(const std::string& piece, text_pace pace) {
  if (pace == at_once || piece.starts_with('<')) return {piece};
  return characters_of(piece);
}

std::vector<key_step> steps_of(std::string script, const std::string& term, text_pace pace) {
  leave_layout_out(script);
  std::vector<key_step> steps;
  for (const std::string& piece : pieces_of(script))
    for (const std::string& part : parts_of(piece, pace)) steps.push_back(step_of(part, term));
  for (std::size_t i = 1; i < steps.size(); i++)  // a key held down goes as fast as characters
    if (steps[i].keys == steps[i - 1].keys && steps[i].kind == type_keys)
      steps[i - 1].time = character_time;
  return steps;
}

}  // namespace scrim
