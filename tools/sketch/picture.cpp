// sketch/picture: frames are taken first, then gadgets; what remains is text.
// A cell is taken once: what stands on it later is no text, and no other gadget.

#include "tools/sketch/picture.h"

#include "screens/model.h"
#include "tools/sketch/source.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace scrim {

static const std::size_t longest_text = sizeof(gadget_list::text) - 1;  // bytes, with its indent

static const std::string blank = " ";
static const char other = '\x7f';  // stands for a character outside of ASCII

static const std::string& cell(const picture& seen, int x, int y) {
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
                                                                                       : other;
}

static char at(const picture& seen, int x, int y) {
  const std::string& bytes = cell(seen, x, y);
  return bytes.size() == 1 && (bytes[0] & 0x80) == 0 ? bytes[0] : line_character(bytes);
}

static place place_of(const picture& seen, int x, int y) {
  return {seen.top + y + 1, seen.left + x + 1};
}

static bool is_taken(const picture& seen, int x, int y) {
  return seen.taken[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
}

static void take(picture& seen, const extent& cells) {
  for (int y = cells.y; y < cells.y + cells.h; y++)
    for (int x = cells.x; x < cells.x + cells.w; x++)
      seen.taken[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] = true;
}

// The cells of a row from column `x` on, `n` of them.
static std::string row_text(const picture& seen, int x, int y, int n) {
  std::string text;
  for (int i = 0; i < n; i++) text += cell(seen, x + i, y);
  return text;
}

// The text in the upper edge of a frame; what draws the edge is "-".
static std::string edge_text(const picture& seen, int x, int y, int n) {
  std::string text;
  for (int i = 0; i < n; i++) text += at(seen, x + i, y) == '-' ? "-" : cell(seen, x + i, y);
  return text;
}

static std::string trimmed(const std::string& text, const char* what = " ") {
  const std::size_t first = text.find_first_not_of(what);
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(what) - first + 1);
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
           "a TAB, which is not as wide everywhere: draw with blanks");
    row.resize((row.size() / 8 + 1) * 8, blank);
  }
  return row;
}

static bool is_blank(const std::string& line) { return trimmed(line).empty(); }

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

// Whether the row's cells from `x` on, `n` of them, are a frame's plain edge.
static bool is_edge(const picture& seen, int x, int y, int n) {
  return at(seen, x, y) == '+' && at(seen, x + n - 1, y) == '+' &&
         edge_text(seen, x + 1, y, n - 2).find_first_not_of('-') == std::string::npos;
}

// Cuts a row to `n` cells. What stands behind them is a mistake.
static void take_outside(source& from, const picture& seen, std::vector<std::string>& row,
                         std::size_t n, int y) {
  for (std::size_t x = n; x < row.size(); x++) {
    if (row[x] == blank) continue;
    report(from, place_of(seen, static_cast<int>(x), y), "outside of the frame");
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
    report(from, {1, 1}, "there is no picture");
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
         "here the window's frame should have a corner: +---- Title ----+");
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
      report(from, place_of(seen, x, y), "the frame is not closed: here its side should be");
  return at(seen, 0, y) == '|';
}

// A window of the size that the frame has. That of a full screen is said so.
static std::string window_of(const picture& seen) {
  if (seen.w == 79 && seen.h == 23) return "fulls:clear";
  return "pop:" + std::to_string(seen.w) + "," + std::to_string(seen.h);
}

bool find_frame(source& from, picture& seen, sketch& drawn) {
  if (!find_upper_edge(from, seen, drawn)) return false;
  do {
    if (!add_row(from, seen, seen.h + 1)) return false;
    seen.h++;
  } while (!is_edge(seen, 0, seen.h, seen.w));
  seen.h++;
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

// Inner frames.

static bool continues_down(const picture& seen, int x, int y) {
  return at(seen, x, y + 1) == '|' || at(seen, x, y + 1) == '+';
}

static bool begins_frame(const picture& seen, int x, int y) {
  return at(seen, x, y) == '+' && at(seen, x + 1, y) == '-' && !is_taken(seen, x, y) &&
         (continues_down(seen, x, y) || at(seen, x + 2, y) == '-');
}

// The column of the corner that ends the upper edge: the first one below which the frame goes on,
// or else the first; 0: there is none.
static int right_corner(const picture& seen, int x, int y) {
  int first = 0;
  for (int right = x + 2; right < seen.w - 1; right++) {
    if (at(seen, right, y) != '+' || at(seen, right - 1, y) != '-') continue;
    if (continues_down(seen, right, y)) return right;
    if (first == 0) first = right;
  }
  return first;
}

static void report_open_side(source& from, const picture& seen, int x, int y) {
  report(from, place_of(seen, x, y),
         cell(seen, x, y) == blank ? "a frame that is not closed: here its side should be"
                                   : "drawn over a frame, whose side should be here");
}

// The rows from `y` down to the lower edge, both included; 0, with a mistake noted: there is none.
static int frame_height(source& from, const picture& seen, int x, int right, int y) {
  for (int row = y + 1; row < seen.h - 1; row++) {
    if (is_edge(seen, x, row, right - x + 1)) return row - y + 1;
    if (at(seen, x, row) == '|' && at(seen, right, row) == '|') continue;
    report_open_side(from, seen, at(seen, x, row) == '|' ? right : x, row);
    return 0;
  }
  report(from, place_of(seen, x, y), "a frame that is not closed: it has no lower edge");
  return 0;
}

// What is left of a frame that is not closed is no frame of its own.
static void take_lower_edge(picture& seen, int x, int y) {
  while (++y < seen.h - 1) {
    if (at(seen, x, y) != '+') continue;
    for (int end = x; end < seen.w - 1 && (at(seen, end, y) == '+' || at(seen, end, y) == '-');
         end++)
      take(seen, {end, y, 1});
    return;
  }
}

static void take_window(source& from, picture& seen, sketch& drawn, const extent& cells,
                        const std::string& name) {
  for (int y = cells.y + 1; y < cells.y + cells.h - 1; y++)
    if (!is_blank(row_text(seen, cells.x + 1, y, cells.w - 2)))
      report(from, place_of(seen, cells.x + 1, y), "nothing can stand in a scroll window");
  take(seen, cells);
  gadget window = {.what = kind::window, .cells = cells, .key = name};
  window.drawn = place_of(seen, cells.x, cells.y);
  window.file = name;
  drawn.gadgets.push_back(window);
}

static void take_box(picture& seen, sketch& drawn, const extent& cells) {
  take(seen, {cells.x, cells.y, cells.w, 1});
  take(seen, {cells.x, cells.y + cells.h - 1, cells.w, 1});
  take(seen, {cells.x, cells.y, 1, cells.h});
  take(seen, {cells.x + cells.w - 1, cells.y, 1, cells.h});
  drawn.boxes.push_back(cells);
}

static void take_frame(source& from, picture& seen, sketch& drawn, int x, int y) {
  const int right = right_corner(seen, x, y);
  if (right == 0) {
    report(from, place_of(seen, x, y), "a frame that is not closed: its upper edge has no end");
    return;
  }
  const int height = frame_height(from, seen, x, right, y);
  if (height == 0) return take_lower_edge(seen, x, y);
  const extent cells = {x, y, right - x + 1, height};
  const std::string name = trimmed(edge_text(seen, x + 1, y, cells.w - 2), "- ");
  if (name.empty()) {
    take_box(seen, drawn, cells);
  } else {
    take_window(from, seen, drawn, cells, name);
  }
}

// Gadgets in brackets.

// The column of the closing bracket; 0: there is none before the end of the row.
static int closing(const picture& seen, int x, int y, char bracket) {
  for (int end = x + 1; end < seen.w - 1; end++)
    if (at(seen, end, y) == bracket) return end;
  return 0;
}

// Whether brackets at these columns, and what is between them, are free and of ASCII. Notes the
// mistake when not.
static bool check_inside(source& from, const picture& seen, int x, int end, int y) {
  for (int i = x; i <= end; i++) {
    if (is_taken(seen, i, y)) {
      report(from, place_of(seen, i, y), "a gadget drawn over a frame");
    } else if (at(seen, i, y) == other) {
      report(from, place_of(seen, i, y), "a gadget has only characters of ASCII");
    } else if (i > x && at(seen, i, y) == '[') {
      report(from, place_of(seen, x, y), "an open bracket without its end");
    } else {
      continue;
    }
    return false;
  }
  return true;
}

static gadget& add(picture& seen, sketch& drawn, kind what, const extent& cells, int x, int end) {
  take(seen, {x, cells.y, end - x + 1, 1});
  drawn.gadgets.push_back({.what = what, .cells = cells, .key = "", .drawn = {}});
  drawn.gadgets.back().drawn = place_of(seen, x, cells.y);
  return drawn.gadgets.back();
}

static bool is_state(const std::string& text) { return text == " " || text == "X" || text == "x"; }

static void take_checkbox(picture& seen, sketch& drawn, kind what, int x, int y) {
  gadget& box = add(seen, drawn, what, {x + 1, y, 1}, x, x + 2);
  box.value = cell(seen, x + 1, y) == blank ? "_" : "X";
}

static void take_field(source& from, picture& seen, sketch& drawn, int x, int end, int y) {
  const std::string inside = row_text(seen, x + 1, y, end - x - 1);
  if (is_state(inside)) return take_checkbox(seen, drawn, kind::checkbox, x, y);
  const bool is_list = inside.size() > 2 && inside.ends_with(" v");
  const std::string name = trimmed(is_list ? inside.substr(0, inside.size() - 1) : inside);
  if (name.empty()) {
    report(from, place_of(seen, x, y), "a field without a name: write its variable into it");
    return take(seen, {x, y, end - x + 1});
  }
  gadget& field =
      add(seen, drawn, is_list ? kind::list : kind::field, {x + 1, y, end - x - 1}, x, end);
  field.key = field.variable = name;
}

// A label has a hot key, or the legend says what it does; else it is a text in brackets.
static bool is_label(const std::string& text) {
  const std::size_t mark = text.find('_');
  return mark != std::string::npos && mark + 1 < text.size() && text[mark + 1] != ' ';
}

static void take_label(picture& seen, sketch& drawn, int x, int end, int y) {
  const std::string label = row_text(seen, x, y, end - x);
  gadget& button = add(seen, drawn, kind::button, {x, y, end - x + 1}, x, end);
  button.label = label;
  button.key = label.substr(1);
  std::erase(button.key, '_');
  button.cells.w -= static_cast<int>(label.size() - 1 - button.key.size());
}

static void take_attached(picture& seen, sketch& drawn, int x, int end, int y) {
  take(seen, {x, y, end - x + 1, 1});
  drawn.attached.push_back(
      {trimmed(row_text(seen, x + 1, y, end - x - 1)), {x, y, end - x + 1}, place_of(seen, x, y)});
}

static bool is_attached(const picture& seen, int x, int end, int y) {
  const std::string inside = row_text(seen, x + 1, y, end - x - 1);
  const std::string letters = trimmed(inside);
  return at(seen, x - 1, y) != '$' && inside.starts_with(letters) &&
         (letters == "a" || letters == "b" || letters == "ab");
}

// Takes the gadget that begins with this bracket, if one does. Returns the last column that has
// been dealt with.
static int take_bracket(source& from, picture& seen, sketch& drawn, int x, int y,
                        const std::function<bool(std::string_view)>& is_button) {
  static const std::string_view opening = "[(<{", ending = "])>}";
  const std::size_t which = opening.find(at(seen, x, y));
  if (which == std::string_view::npos) return x;
  const char bracket = opening[which];
  const int end = closing(seen, x, y, ending[which]);
  const bool marked = bracket == '[' || (at(seen, x + 1, y) == '_' && bracket != '{');
  if (end == 0) {
    if (marked) report(from, place_of(seen, x, y), "an open bracket without its end");
    return x;
  }
  const std::string inside = row_text(seen, x + 1, y, end - x - 1);
  const bool exclusive = bracket == '(' && is_state(inside);
  const bool button = (bracket == '(' || bracket == '<') && !exclusive && !inside.empty() &&
                      inside[0] != ' ' && (is_label(inside) || is_button(inside));
  const bool attached = bracket == '{' && is_attached(seen, x, end, y);
  if (bracket != '[' && !exclusive && !button && !attached) return x;
  if (!check_inside(from, seen, x, end, y)) return end;
  if (bracket == '[') take_field(from, seen, drawn, x, end, y);
  if (exclusive) take_checkbox(seen, drawn, kind::exclusive, x, y);
  if (button) take_label(seen, drawn, x, end, y);
  if (attached) take_attached(seen, drawn, x, end, y);
  return end;
}

// What describes a checkbox.

static bool is_text(const picture& seen, int x, int y) {
  return !is_taken(seen, x, y) && cell(seen, x, y) != blank;
}

// A text up to two blanks or something else: its first and last column; first > last: there is
// none.
struct label_span {
  int first, last;
};

static label_span label_right_of(const picture& seen, int x, int y) {
  for (int i = 0; i < 2 && !is_taken(seen, x, y) && !is_text(seen, x, y); i++) x++;
  int last = x - 1;
  while (is_text(seen, last + 1, y) || (!is_taken(seen, last + 1, y) && is_text(seen, last + 2, y)))
    last++;
  return {x, last};
}

static label_span label_left_of(const picture& seen, int x, int y) {
  while (!is_taken(seen, x, y) && !is_text(seen, x, y)) x--;
  int first = x + 1;
  while (is_text(seen, first - 1, y) ||
         (!is_taken(seen, first - 1, y) && is_text(seen, first - 2, y)))
    first--;
  return {first, x};
}

static bool is_box(const gadget& it) {
  return it.what == kind::checkbox || it.what == kind::exclusive;
}

static std::string label_text(const picture& seen, const label_span& span, int y) {
  return trimmed(row_text(seen, span.first, y, span.last - span.first + 1), " :");
}

// A text to the right of a box is its name, or else one to the left that is not another box's.
static void name_checkboxes(const picture& seen, sketch& drawn) {
  std::set<std::pair<int, int>> named;  // row and last column of the texts to the right of boxes
  for (gadget& box : drawn.gadgets) {
    if (!is_box(box)) continue;
    const label_span span = label_right_of(seen, box.cells.x + 2, box.cells.y);
    box.key = label_text(seen, span, box.cells.y);
    if (!box.key.empty()) named.emplace(box.cells.y, span.last);
  }
  for (gadget& box : drawn.gadgets) {
    if (!is_box(box) || !box.key.empty()) continue;
    const label_span span = label_left_of(seen, box.cells.x - 2, box.cells.y);
    if (!named.contains({box.cells.y, span.last})) box.key = label_text(seen, span, box.cells.y);
    if (box.key.empty()) box.key = box.what == kind::checkbox ? "[ ]" : "( )";
  }
}

// Texts.

static bool has_other(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) { return (c & 0x80) != 0; });
}

// Whether a text may go on at column `to` with blanks for the cells from `x` to there. They must
// not be painted over a frame; and where the text before is not as wide as it is long, what follows
// would not stand where it is drawn.
static bool goes_on(const picture& seen, const std::string& text, int x, int to, int y) {
  const bool shifts = text.find("${") != std::string::npos || has_other(text);
  for (; x < to; x++)
    if (is_taken(seen, x, y) &&
        (shifts || std::string_view("+-|").find(at(seen, x, y)) != std::string_view::npos))
      return false;
  return true;
}

static int next_text(const picture& seen, int x, int y) {
  while (x < seen.w && !is_text(seen, x, y)) x++;
  return x;
}

static void check_text(source& from, const picture& seen, const text_run& run, int end) {
  const auto bytes = static_cast<int>(run.text.size());
  if (run.x < first_text_column || run.y < first_text_row)
    report(from, run.drawn, "no text can stand in the window's first two rows or four columns");
  if (bytes + run.x - first_text_column > static_cast<int>(longest_text))
    report(from, run.drawn,
           "a text that is too long: " + std::to_string(longest_text) +
               " bytes a row, from the window's fifth column on");
  if (run.x == first_text_column && run.text.starts_with("endtext:"))
    report(from, run.drawn, "'endtext:' ends a text");
  for (int x = end; x < std::min(run.x + bytes, seen.w); x++) {
    if (!has_other(run.text) || !is_taken(seen, x, run.y)) continue;
    report(from, place_of(seen, x, run.y),
           "the text before has " + std::to_string(bytes) +
               " bytes, and the program counts bytes: leave more blanks");
    return;
  }
}

static void read_texts(source& from, const picture& seen, sketch& drawn) {
  for (int y = 1; y < seen.h - 1; y++) {
    for (int x = next_text(seen, 1, y); x < seen.w;) {
      text_run run = {x, y, "", place_of(seen, x, y)};
      int end = x, next = x;
      do {
        for (; end < next; end++) run.text += is_taken(seen, end, y) ? blank : cell(seen, end, y);
        while (is_text(seen, end, y)) run.text += cell(seen, end++, y);
        next = next_text(seen, end, y);
      } while (next < seen.w && goes_on(seen, run.text, end, next, y));
      check_text(from, seen, run, end);
      drawn.texts.push_back(run);
      x = next;
    }
  }
}

void read_picture(source& from, picture& seen, sketch& drawn,
                  const std::function<bool(std::string_view)>& is_button) {
  for (int y = 1; y < seen.h - 1; y++)
    for (int x = 1; x < seen.w - 1; x++)
      if (begins_frame(seen, x, y)) take_frame(from, seen, drawn, x, y);
  for (int y = 1; y < seen.h - 1; y++)
    for (int x = 1; x < seen.w - 1; x++)
      if (!is_taken(seen, x, y)) x = take_bracket(from, seen, drawn, x, y, is_button);
  name_checkboxes(seen, drawn);
  read_texts(from, seen, drawn);
}

}  // namespace scrim
