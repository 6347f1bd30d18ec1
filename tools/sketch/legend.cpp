// sketch/legend: a key, a colon, and properties between commas; or lines of the screen file.
// Where two readings are possible the one without quotes is tried first.

#include "tools/sketch/legend.h"

#include "common/text.h"
#include "screens/directives.h"
#include "tools/sketch/source.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace scrim {

// Reading.

// Where a quoted text ends, behind its last quote; 0: `text` does not begin with a whole one. A
// quote ends it only in front of one of `ends`, of blanks and these, or at the end.
static std::size_t quoted_length(std::string_view text, std::string_view ends) {
  if (!text.starts_with('"')) return 0;
  for (std::size_t end = 1; (end = text.find('"', end)) != std::string_view::npos; end++) {
    const std::string_view behind = without_blanks(text.substr(end + 1));
    if (behind.empty() || ends.find(behind[0]) != std::string_view::npos) return end + 1;
  }
  return 0;
}

std::string unquoted(std::string_view text) {
  const std::size_t n = quoted_length(text, "");
  return std::string(n == text.size() && n > 0 ? text.substr(1, n - 2) : text);
}

std::vector<property> split_items(std::string_view text, place where) {
  std::vector<property> items;
  place item = where;  // of what begins at `at`
  for (std::size_t at = 0; at <= text.size();) {
    const std::size_t start = std::min(text.find_first_not_of(' ', at), text.size());
    const std::size_t word = std::min(text.find_first_of(" ,", start), text.size());
    const std::size_t value = std::min(text.find_first_not_of(' ', word), text.size());
    std::size_t end = start + quoted_length(text.substr(start), ",");
    if (end == start && word < text.size() && text[word] == ' ')
      end = value + quoted_length(text.substr(value), ",");
    end = std::min(text.find(',', end), text.size());
    item.column += static_cast<int>(start - at);
    items.push_back({std::string(without_blanks(text.substr(start, end - start))), "", item});
    at = end + 1;
    item.column += static_cast<int>(cells_of(text.substr(start, at - start)).size());
  }
  return items;
}

// An item as a name and its value.
static property as_property(const property& item) {
  const std::size_t end = std::min(item.name.find(' '), item.name.size());
  const std::string_view value = without_blanks(std::string_view(item.name).substr(end));
  const bool is_open = value.starts_with('"') && quoted_length(value, "") != value.size();
  return {item.name.substr(0, end), unquoted(value), item.where, is_open};
}

// Takes "#2" off a key.
static int take_number(std::string& key) {
  const std::size_t mark = key.rfind('#');
  int number = 0;
  if (mark == std::string::npos || mark == 0 || !read_number(key.c_str() + mark + 1, number))
    return 0;
  key.resize(mark);
  return number;
}

entry keyed(std::string_view key, place where) {
  entry made = {std::string(without_blanks(key)), 0, where, "", {}, {}};
  made.number = take_number(made.key);
  made.key = unquoted(made.key);
  return made;
}

static bool is_block(std::string_view line) {
  return line.starts_with("text:") || line.starts_with("atext") || line.starts_with("btext");
}

static std::string_view without_mark(std::string_view line) {
  line.remove_prefix(1);
  if (line.starts_with(' ')) line.remove_prefix(1);
  return line;
}

// Whether a line is about the scroll window that the line before declares or announces.
static bool belongs_to(std::string_view before, std::string_view line) {
  const bool window = line.starts_with("swin") || line.starts_with("dswin");
  return (line.starts_with("swhigh") || line.starts_with("swpos") || window) &&
         window == (before == "swdefer") && directive_row(line) != -1;
}

// Takes a line of the screen file, and those of its block. Lines about a scroll window belong to
// the one before. Moves `index` to the last line taken.
static void take_lines(const source& from, std::size_t& index, legend& read, entry made,
                       std::string_view line) {
  const bool follows =
      made.key.empty() && !read.entries.empty() && !read.entries.back().lines.empty();
  if (follows && belongs_to(read.entries.back().lines.back(), line)) {
    read.entries.back().lines.emplace_back(line);
    return;
  }
  made.lines.emplace_back(line);
  while (is_block(line) && index + 1 < from.lines.size()) {
    made.lines.push_back(from.lines[++index]);
    if (from.lines[index].starts_with("endtext:")) break;
  }
  read.entries.push_back(made);
}

// A line of the legend, its TABs as blanks. What is the screen file's stays as it is.
static std::string legend_line(const std::string& written) {
  std::string line = written;
  const std::size_t end = line.find('=');
  std::replace(line.begin(), line.begin() + static_cast<std::ptrdiff_t>(std::min(end, line.size())),
               '\t', ' ');
  return line;
}

static void take_entry(source& from, std::size_t& index, legend& read) {
  const std::string line = legend_line(from.lines[index]);
  const auto start = static_cast<int>(line.find_first_not_of(' '));
  const place where = {static_cast<int>(index) + 1, start + 1};
  const std::string_view text = std::string_view(line).substr(static_cast<std::size_t>(start));
  const std::size_t quoted = quoted_length(text, ":=#");
  const std::size_t end = text.find_first_of(":=", quoted);
  if (end == std::string_view::npos) {
    report(from, where, {"this line has no ':' behind what it is about"});
    return;
  }
  entry made = keyed(text.substr(0, end), where);
  const std::string_view rest = text.substr(end);
  if (rest[0] == '=') return take_lines(from, index, read, made, without_mark(rest));
  made.text = without_mark(rest);
  const std::string_view before = text.substr(0, text.size() - made.text.size());
  const place behind = {where.line, where.column + static_cast<int>(cells_of(before).size())};
  for (const property& item : split_items(made.text, behind))
    made.properties.push_back(as_property(item));
  read.entries.push_back(made);
}

legend read_legend(source& from, int first) {
  legend read;
  for (auto index = static_cast<std::size_t>(first); index < from.lines.size(); index++) {
    const std::string line = legend_line(from.lines[index]);
    const std::string_view text = without_blanks(line);
    if (!text.empty() && text[0] != '#') take_entry(from, index, read);
  }
  return read;
}

bool names_button(const legend& read, std::string_view label) {
  auto is_about_button = [](const property& it) {
    return it.name == "action" || it.name == "check" || it.name == "no" || it.name == "button";
  };
  return std::any_of(read.entries.begin(), read.entries.end(), [&](const entry& it) {
    return it.key == label &&
           std::any_of(it.properties.begin(), it.properties.end(), is_about_button);
  });
}

}  // namespace scrim
