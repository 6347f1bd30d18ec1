// sketch/picture: what is outside of the frame is a mistake, and inside of it each row is as long
// as the frame is wide.

#include "tools/sketch/picture.h"

#include "tools/sketch/source.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>

namespace scrim {

const std::string& cell(const picture& seen, int x, int y) {
  const bool inside = y >= 0 && y < static_cast<int>(seen.cells.size()) && x >= 0 &&
                      x < static_cast<int>(seen.cells[static_cast<std::size_t>(y)].size());
  return inside ? seen.cells[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] : blank;
}

// What a frame may be drawn with besides "+", "-" and "|".
static char line_character(const std::string& bytes) {
  static const std::string corners[] = {"┌", "┐", "└", "┘"};
  if (bytes == "─") return '-';
  if (bytes == "│") return '|';
  return std::find(std::begin(corners), std::end(corners), bytes) != std::end(corners) ? '+'
                                                                                       : not_ascii;
}

char at(const picture& seen, int x, int y) {
  const std::string& bytes = cell(seen, x, y);
  return bytes.size() == 1 && (bytes[0] & 0x80) == 0 ? bytes[0] : line_character(bytes);
}

place place_of(const picture& seen, int x, int y) { return {seen.top + y + 1, seen.left + x + 1}; }

bool is_taken(const picture& seen, int x, int y) {
  return seen.taken[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
}

void take(picture& seen, const extent& cells) {
  for (int y = cells.y; y < cells.y + cells.h; y++)
    for (int x = cells.x; x < cells.x + cells.w; x++)
      seen.taken[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] = true;
}

std::string row_text(const picture& seen, int x, int y, int n) {
  std::string text;
  for (int i = 0; i < n; i++) text += cell(seen, x + i, y);
  return text;
}

std::string edge_text(const picture& seen, int x, int y, int n) {
  std::string text;
  for (int i = 0; i < n; i++) text += at(seen, x + i, y) == '-' ? "-" : cell(seen, x + i, y);
  return text;
}

std::string trimmed(const std::string& text, const char* what) {
  const std::size_t first = text.find_first_not_of(what);
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(what) - first + 1);
}

bool is_text(const picture& seen, int x, int y) {
  return !is_taken(seen, x, y) && cell(seen, x, y) != blank;
}

bool has_other(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) { return (c & 0x80) != 0; });
}

// The window's frame.

// A line as cells. A TAB's width depends on who shows it; as many take it for the next column that
// is a multiple of eight.
static std::vector<std::string> row_of(source& from, int index) {
  std::vector<std::string> row;
  for (const std::string& cell : cells_of(from.lines[static_cast<std::size_t>(index)])) {
    if (cell != "\t") {
      row.push_back(cell);
      continue;
    }
    report(from, {index + 1, static_cast<int>(row.size()) + 1},
           {"a TAB, which is not as wide everywhere: draw with blanks"});
    row.resize((row.size() / 8 + 1) * 8, blank);
  }
  return row;
}

bool is_blank(const std::string& line) { return trimmed(line).empty(); }

// Skips to the picture, and keeps the comments above it.
static int first_row(const source& from, sketch& drawn) {
  std::size_t index = 0;
  for (; index < from.lines.size(); index++) {
    const std::string& line = from.lines[index];
    if (line.starts_with('#')) {
      drawn.comments.push_back(line);
    } else if (!is_blank(line)) {
      break;
    }
  }
  return static_cast<int>(index);
}

bool is_edge(const picture& seen, int x, int y, int n) {
  return at(seen, x, y) == '+' && at(seen, x + n - 1, y) == '+' &&
         edge_text(seen, x + 1, y, n - 2).find_first_not_of('-') == std::string::npos;
}

// Cuts a row to `n` cells. What stands behind them is a mistake.
static void take_outside(source& from, const picture& seen, std::vector<std::string>& row,
                         std::size_t n, int y) {
  for (std::size_t x = n; x < row.size(); x++) {
    if (row[x] == blank) continue;
    report(from, place_of(seen, static_cast<int>(x), y), {"outside of the frame"});
    break;
  }
  row.resize(n, blank);
}

// Where the upper edge ends: at its last "+", or with the row.
static std::size_t last_corner(const std::vector<std::string>& row) {
  for (std::size_t x = row.size(); x-- > 1;)
    if (row[x] == "+" || line_character(row[x]) == '+') return x;
  return row.size() - 1;
}

static bool find_upper_edge(source& from, picture& seen, sketch& drawn) {
  seen.top = first_row(from, drawn);
  if (seen.top == static_cast<int>(from.lines.size())) {
    report(from, {1, 1}, {"there is no picture"});
    return false;
  }
  const std::string& line = from.lines[static_cast<std::size_t>(seen.top)];
  seen.left = static_cast<int>(std::min(line.find_first_not_of(' '), line.size()));
  std::vector<std::string> row = row_of(from, seen.top);
  row.erase(row.begin(), row.begin() + seen.left);
  take_outside(from, seen, row, last_corner(row) + 1, 0);
  seen.w = static_cast<int>(row.size());
  seen.cells.push_back(row);
  if (seen.w > 2 && at(seen, 0, 0) == '+' && at(seen, seen.w - 1, 0) == '+') return true;
  report(from, place_of(seen, at(seen, 0, 0) == '+' ? seen.w - 1 : 0, 0),
         {"here the window's frame should have a corner: +---- Title ----+"});
  return false;
}

// Adds row `y`. Returns false when it is not one of the frame's.
static bool add_row(source& from, picture& seen, int y) {
  const int index = seen.top + y;
  std::vector<std::string> row;
  if (index < static_cast<int>(from.lines.size())) row = row_of(from, index);
  row.erase(row.begin(), row.begin() + std::min(seen.left, static_cast<int>(row.size())));
  take_outside(from, seen, row, static_cast<std::size_t>(seen.w), y);
  seen.cells.push_back(row);
  if (is_edge(seen, 0, y, seen.w)) return true;
  for (const int x : {0, seen.w - 1})
    if (at(seen, x, y) != '|')
      report(from, place_of(seen, x, y), {"the frame is not closed: here its side should be"});
  return at(seen, 0, y) == '|';
}

// A window of the size that the frame has. That of a full screen is said so.
static std::string window_of(const picture& seen) {
  if (seen.w == 79 && seen.h == 23) return "fulls:clear";
  return "pop:" + std::to_string(seen.w) + "," + std::to_string(seen.h);
}

// Whether scrim-check would take a window of this size.
static bool fits_screen(source& from, const picture& seen) {
  if (seen.w <= most_columns && seen.h <= most_rows) return true;
  report(from,
         seen.w > most_columns ? place_of(seen, most_columns, 0) : place_of(seen, 0, most_rows),
         {"the window leaves the screen of 80 columns and 24 rows"});
  return false;
}

bool find_frame(source& from, picture& seen, sketch& drawn) {
  if (!find_upper_edge(from, seen, drawn)) return false;
  do {
    if (!add_row(from, seen, seen.h + 1)) return false;
    seen.h++;
  } while (!is_edge(seen, 0, seen.h, seen.w));
  seen.h++;
  if (!fits_screen(from, seen)) return false;
  seen.taken.assign(seen.cells.size(), std::vector<bool>(static_cast<std::size_t>(seen.w), false));
  drawn.title = trimmed(edge_text(seen, 1, 0, seen.w - 2), "-");
  drawn.cells = {0, 0, seen.w, seen.h};
  drawn.corner = place_of(seen, 0, 0);
  drawn.window = window_of(seen);
  take(seen, {0, 0, seen.w, 1});
  take(seen, {0, seen.h - 1, seen.w, 1});
  take(seen, {0, 0, 1, seen.h});
  take(seen, {seen.w - 1, 0, 1, seen.h});
  return true;
}

}  // namespace scrim
