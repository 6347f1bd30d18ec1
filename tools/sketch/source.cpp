// sketch/source: columns are those that an editor shows, so they are counted by characters.

#include "tools/sketch/source.h"

#include "common/program.h"

#include <algorithm>
#include <clocale>
#include <cstddef>
#include <cstdio>
#include <cwchar>
#include <string>
#include <string_view>
#include <vector>

namespace scrim {

std::vector<std::string> split_lines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines.emplace_back(line);
  }
  return lines;
}

std::string joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

std::string_view without_blanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

void report(source& from, place where, std::initializer_list<std::string_view> parts) {
  std::string text;
  for (const std::string_view part : parts) text += part;
  from.mistakes.push_back({where, text});
}

static void print_mistake(const source& from, const mistake& it) {
  complain({from.path, ":", std::to_string(it.where.line), ":", std::to_string(it.where.column),
            ": ", it.text});
  const auto index = static_cast<std::size_t>(it.where.line - 1);
  if (index >= from.lines.size()) return;
  complain({from.lines[index]});
  complain({std::string(static_cast<std::size_t>(it.where.column - 1), ' '), "^"});
}

void print_mistakes(const source& from) {
  std::vector<mistake> sorted = from.mistakes;
  std::stable_sort(sorted.begin(), sorted.end(), [](const mistake& a, const mistake& b) {
    return a.where.line != b.where.line ? a.where.line < b.where.line
                                        : a.where.column < b.where.column;
  });
  for (const mistake& it : sorted) print_mistake(from, it);
}

// The bytes of the character that `text` begins with, and its columns.
static std::size_t first_character(std::string_view text, int& columns) {
  static const bool has_unicode = setlocale(LC_CTYPE, "C.UTF-8") != nullptr;
  wchar_t character = 0;
  std::mbstate_t state = {};
  columns = 1;
  if (!has_unicode || (text[0] & 0x80) == 0) return 1;
  const std::size_t n = std::mbrtowc(&character, text.data(), text.size(), &state);
  if (n == 0 || n > text.size()) return 1;
  columns = std::max(wcwidth(character), 0);
  return n;
}

std::vector<std::string> cells_of(std::string_view line) {
  std::vector<std::string> cells;
  while (!line.empty()) {
    int columns = 0;
    const std::size_t n = first_character(line, columns);
    if (columns == 0 && !cells.empty()) {
      cells.back() += line.substr(0, n);
    } else {
      cells.emplace_back(line.substr(0, n));
    }
    if (columns == 2) cells.emplace_back();
    line.remove_prefix(n);
  }
  return cells;
}

}  // namespace scrim
