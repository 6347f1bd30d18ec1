// sketch/brackets: what a bracket begins is told by the bracket and what is in it.

#include "tools/sketch/brackets.h"

#include "tools/sketch/source.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace scrim {

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
      report(from, place_of(seen, i, y), {"a gadget drawn over a frame"});
    } else if (at(seen, i, y) == not_ascii) {
      report(from, place_of(seen, i, y), {"a gadget has only characters of ASCII"});
    } else if (i > x && at(seen, i, y) == '[') {
      report(from, place_of(seen, x, y), {"an open bracket without its end"});
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
    report(from, place_of(seen, x, y), {"a field without a name: write its variable into it"});
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
    if (marked) report(from, place_of(seen, x, y), {"an open bracket without its end"});
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

// A text up to two blanks or something else: its first and last column; first > last: there is
// none.
struct label_span {
  int first, last;
};

static label_span label_right_of(const picture& seen, int x, int y) {
  for (int i = 0; i < 2 && !is_taken(seen, x, y) && !is_text(seen, x, y); i++) x++;
  int last = x - 1;
  if (!is_text(seen, x, y)) return {x, last};
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

void take_gadgets(source& from, picture& seen, sketch& drawn,
                  const std::function<bool(std::string_view)>& is_button) {
  for (int y = 1; y < seen.h - 1; y++)
    for (int x = 1; x < seen.w - 1; x++)
      if (!is_taken(seen, x, y)) x = take_bracket(from, seen, drawn, x, y, is_button);
  name_checkboxes(seen, drawn);
}

}  // namespace scrim
