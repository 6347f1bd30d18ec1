// drive/key_script: one table of names. <term.h> makes macros of many short words, so the
// emulator's header must not be seen here.

#include "tools/drive/key_script.h"

#include "common/program.h"

#include <algorithm>
#include <cstdlib>

#include <unistd.h>

#include <curses.h>
#include <term.h>

namespace scrim {

namespace {

constexpr int default_pause = 500;  // ms of a <wait> without a number

struct key_name {
  const char* name;
  const char* bytes;       // the same on every terminal, or
  const char* capability;  // the terminfo name of the string to look up
};

// In any order: the list is short.
const key_name key_names[] = {
    {"Up", nullptr, "kcuu1"},    {"Down", nullptr, "kcud1"}, {"Left", nullptr, "kcub1"},
    {"Right", nullptr, "kcuf1"}, {"Home", nullptr, "khome"}, {"End", nullptr, "kend"},
    {"PgUp", nullptr, "kpp"},    {"PgDn", nullptr, "knp"},   {"Ins", nullptr, "kich1"},
    {"Del", nullptr, "kdch1"},   {"BS", nullptr, "kbs"},     {"BackTab", nullptr, "kcbt"},
    {"F1", nullptr, "kf1"},      {"F2", nullptr, "kf2"},     {"F3", nullptr, "kf3"},
    {"F4", nullptr, "kf4"},      {"F5", nullptr, "kf5"},     {"F6", nullptr, "kf6"},
    {"F7", nullptr, "kf7"},      {"F8", nullptr, "kf8"},     {"F9", nullptr, "kf9"},
    {"F10", nullptr, "kf10"},    {"F11", nullptr, "kf11"},   {"F12", nullptr, "kf12"},
    {"Tab", "\t", nullptr},      {"Enter", "\r", nullptr},   {"LF", "\n", nullptr},
    {"Esc", "\033", nullptr},    {"Space", " ", nullptr},    {"lt", "<", nullptr},
};

// The bytes that a key sends on the terminal. The terminal is looked up by the first key that needs
// it, so a script of plain text runs with any name.
std::string looked_up(const key_name& key, const std::string& term) {
  static int found = 0;
  if (found == 0 && setupterm(term.c_str(), STDOUT_FILENO, &found) != OK)
    give_up("no description of the terminal " + term);
  const char* bytes = tigetstr(key.capability);
  if (bytes == nullptr || bytes == reinterpret_cast<char*>(-1))
    give_up("the terminal " + term + " has no key <" + key.name + ">");
  return bytes;
}

key_step named_step(const std::string& name, const std::string& term) {
  if (name == "shot") return {key_step::shot, "", 0};
  if (name == "wait") return {key_step::wait, "", default_pause};
  if (name.starts_with("wait:"))
    return {key_step::wait, "", number_in(name.substr(5), 0, most_time)};
  if (name.size() == 6 && name.starts_with("Ctrl-"))
    return {key_step::type,
            std::string(1, name[5] == '?' ? '\177' : static_cast<char>(name[5] & 31)), 0};
  for (const key_name& key : key_names)
    if (name == key.name)
      return {key_step::type, key.bytes != nullptr ? key.bytes : looked_up(key, term), 0};
  give_up("no key <" + name + ">");
}

// Line breaks, and the blanks that indent the line behind.
void leave_layout_out(std::string& script) {
  for (size_t at = 0; (at = script.find('\n', at)) != std::string::npos;)
    script.erase(at, script.find_first_not_of(" \t\n", at) - at);
}

}  // namespace

[[noreturn]] void give_up(const std::string& message) {
  complain({"scrim-drive: ", message});
  exit(own_failure);
}

int number_in(const std::string& text, int least, int most) {
  char* end = nullptr;
  long number = strtol(text.c_str(), &end, 10);
  if (text.empty() || *end != '\0' || number < least || number > most)
    give_up("not a number from " + std::to_string(least) + " to " + std::to_string(most) + ": " +
            text);
  return static_cast<int>(number);
}

std::vector<key_step> steps_of(std::string script, const std::string& term) {
  leave_layout_out(script);
  std::vector<key_step> steps;
  for (size_t at = 0; at < script.size();) {
    size_t end = script.find(script[at] == '<' ? '>' : '<', at);
    if (script[at] != '<') {
      steps.push_back({key_step::type, script.substr(at, end - at), 0});
      at = std::min(end, script.size());
      continue;
    }
    if (end == std::string::npos) give_up("no > after " + script.substr(at) + "; <lt> types a <");
    steps.push_back(named_step(script.substr(at + 1, end - at - 1), term));
    at = end + 1;
  }
  return steps;
}

}  // namespace scrim
