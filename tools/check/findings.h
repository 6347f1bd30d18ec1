// tools/check/findings: what is to be said of screen files: collected, sorted and printed.
#pragma once

#include <compare>
#include <set>
#include <string>
#include <string_view>

namespace scrim {

struct finding {
  std::string path;
  int line;
  bool is_note;  // the form works, but somebody will stumble; else a fault: it cannot work so
  std::string text;
  auto operator<=>(const finding&) const = default;
};

// Sorted by file and line, a line's faults before its notes. A file that several lists name has its
// own faults in each of them: each fault is there once.
using findings = std::set<finding>;

// Writes a line for each to standard output, without what could drive the terminal.
void print_findings(const findings& found);

// The findings, each note as a fault.
findings notes_as_faults(const findings& found);

bool has_fault(const findings& found);

// The findings as bytes for another process, and those that such bytes hold, added to `found`.
std::string pack(const findings& found);
void unpack(std::string_view bytes, findings& found);

}  // namespace scrim
