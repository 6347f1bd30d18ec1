// tools/check/findings: paths and messages hold no NUL, which so ends each word of packed findings.

#include "tools/check/findings.h"

#include "common/program.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace scrim {

void print_findings(const findings& found) {
  for (const auto& [path, line, is_note, text] : found)
    print(stdout, {path, ":", std::to_string(line), is_note ? ": note: " : ": ", text});
}

findings notes_as_faults(const findings& found) {
  findings faults;
  for (const auto& [path, line, is_note, text] : found) faults.insert({path, line, false, text});
  return faults;
}

bool has_fault(const findings& found) {
  return std::any_of(found.begin(), found.end(), [](const finding& it) { return !it.is_note; });
}

std::string pack(const findings& found) {
  std::string bytes;
  for (const auto& [path, line, is_note, text] : found)
    for (const std::string& word : {path, std::to_string(line), std::to_string(is_note), text})
      bytes += word + '\0';
  return bytes;
}

// Takes the first word off packed findings.
static std::string next_word(std::string_view& bytes) {
  std::string word(bytes.substr(0, bytes.find('\0')));
  bytes.remove_prefix(std::min(word.size() + 1, bytes.size()));
  return word;
}

void unpack(std::string_view bytes, findings& found) {
  while (!bytes.empty()) {
    const std::string path = next_word(bytes);
    const int line = std::atoi(next_word(bytes).c_str());
    const bool is_note = next_word(bytes) != "0";
    found.insert({path, line, is_note, next_word(bytes)});
  }
}

}  // namespace scrim
