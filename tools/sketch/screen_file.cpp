// sketch/screen_file: texts come first, for what is declared later is painted over them.

#include "tools/sketch/screen_file.h"

#include "tools/sketch/checks.h"
#include "tools/sketch/sketch.h"
#include "tools/sketch/source.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace scrim {

const char origin_mark[] = "# Drawn in ";

// A backslash would mark the character behind it.
static std::string escaped(const std::string& text) {
  std::string line;
  for (const char c : text) line += c == '\\' ? "\\\\" : std::string(1, c);
  return line;
}

static std::string numbers(std::initializer_list<int> all) {
  std::string text;
  for (const int number : all) text += (text.empty() ? "" : ",") + std::to_string(number);
  return text;
}

// A gadget's line.

static std::string button_line(const gadget& it, const std::string& mark) {
  const std::string label = it.label[0] == '(' ? it.label.substr(1) : it.label;
  // A label that begins so would lose its first character to the bracket.
  const bool keeps = !label.empty() && it.label[0] == '(' && (label[0] == '(' || label[0] == '<');
  return mark + "pbutton:" + numbers({it.cells.x, it.cells.y}) + ":" +
         escaped(keeps ? "(" + label : label) + ":" + it.action +
         (it.checks.value_or(false) ? ":Y" : "");
}

static std::string field_line(const gadget& it, const std::string& mark) {
  const std::string most = it.most == it.cells.w ? "" : "/" + std::to_string(it.most);
  std::string line = mark + "etext:" + numbers({it.cells.x, it.cells.y, it.cells.w}) + most + ":" +
                     (it.password ? "\\\\p" : escaped(it.value)) + ":" + it.variable;
  if (!it.type.empty() || it.required) line += ":" + it.type;
  if (it.required) line += ":N";
  return line;
}

static std::string checkbox_line(const gadget& it, const std::string& mark) {
  return mark + (it.what == kind::exclusive ? "x" : "") +
         "checkbox:" + numbers({it.cells.x, it.cells.y}) + ":" + escaped(it.value) + ":" +
         it.variable + (it.attached.empty() ? "" : ":" + it.attached);
}

static std::string list_line(const gadget& it) {
  std::string line =
      "poplist:" + numbers({it.cells.x, it.cells.y}) + ":" + escaped(it.value) + ":" + it.variable;
  for (const std::string& entry : it.entries) line += ":" + escaped(entry);
  return line;
}

static std::string window_line(const gadget& it, const std::string& mark) {
  const auto& [x, y, w, h] = it.cells;
  std::string line = it.deferred ? "swdefer\n" : "";
  line += mark + "swin:" + numbers({x, y, w, h}) + ":" + escaped(it.file);
  if (!it.variable.empty()) line += ":" + it.variable;
  if (!it.highlight.empty()) line += "\nswhigh:" + it.highlight;
  if (!it.start.empty()) line += "\nswpos:" + it.start;
  return line;
}

static std::string gadget_line(const gadget& it, bool active) {
  const std::string mark = active ? "d" : "";
  switch (it.what) {
    case kind::button:
      return button_line(it, mark);
    case kind::field:
      return field_line(it, mark);
    case kind::checkbox:
    case kind::exclusive:
      return checkbox_line(it, mark);
    case kind::list:
      return list_line(it);
    case kind::window:
      return window_line(it, mark);
  }
  return "";
}

static std::string gadget_lines(const sketch& drawn, std::size_t index) {
  const gadget& it = drawn.gadgets[index];
  return it.verbatim ? joined(it.lines) : gadget_line(it, drawn.active == index) + "\n";
}

// Texts.

// The n-th text of each row; empty where no row has so many.
static std::string text_block(const sketch& drawn, int n) {
  std::string block;
  int row = first_text_row, of_row = 0, last = -1;
  for (const text_run& it : drawn.texts) {
    of_row = it.y == last ? of_row + 1 : 0;
    last = it.y;
    if (of_row != n) continue;
    for (; row < it.y; row++) block += "\n";
    block += std::string(static_cast<std::size_t>(it.x - first_text_column), ' ') +
             escaped(it.text) + "\n";
    row++;
  }
  return block;
}

// Whether a text is to be active at first, and there is none.
static bool lacks_text(const sketch& drawn) {
  return drawn.active == no_gadget && !drawn.order.empty() && drawn.texts.empty() &&
         std::none_of(drawn.lines.begin(), drawn.lines.end(),
                      [](const std::string& line) { return line.starts_with("text:"); });
}

static std::string texts(const sketch& drawn) {
  std::string text;
  for (int n = 0;; n++) {
    const std::string block = n == 0 && lacks_text(drawn) ? "\n" : text_block(drawn, n);
    if (block.empty()) return text;
    text += "text:\n" + block + "endtext:\n";
  }
}

// A line of an attached text covers all columns that are drawn for it: a blank that begins it is
// painted only when it is marked.
static std::string attached_line(const std::string& text, int width) {
  std::string line = text;
  line.resize(std::max(line.size(), static_cast<std::size_t>(width)), ' ');
  return line[0] == ' ' ? "\\ " + escaped(line.substr(1)) : escaped(line);
}

static std::string attached_blocks(const sketch& drawn) {
  std::string text;
  for (const attached_text& it : drawn.attached) {
    for (const char letter : it.letters) {
      text += std::string(1, letter) + "text:" + numbers({it.cells.x, it.cells.y}) + "\n";
      for (const std::string& line : drawn.attached_said[letter == 'a' ? 0 : 1].lines)
        text += attached_line(line, it.cells.w) + "\n";
      text += "endtext:\n";
    }
  }
  return text;
}

// The whole.

static std::string head(const sketch& drawn, const std::string& origin) {
  std::string text = origin.empty() ? "" : origin_mark + origin + " with scrim-sketch.\n";
  text += joined(drawn.comments);
  if (!drawn.name.empty()) text += "name:" + drawn.name + "\n";
  text += drawn.window + "\n";
  if (!drawn.title.empty()) text += "title:" + escaped(drawn.title) + "\n";
  return text;
}

static std::string boxes(const sketch& drawn) {
  std::string text;
  for (const auto& [x, y, w, h] : drawn.boxes) text += "box:" + numbers({x, y, w, h}) + "\n";
  return text;
}

// Whether the first gadget of the order has to come before all texts to be active at first.
static bool comes_first(const sketch& drawn) {
  return !drawn.order.empty() && drawn.active == drawn.order.front() &&
         needs_first_place(drawn.gadgets[drawn.order.front()]);
}

std::string screen_file(const sketch& drawn, const std::string& origin) {
  const bool first = comes_first(drawn);
  std::string text = head(drawn, origin);
  if (first) text += gadget_lines(drawn, drawn.order.front());
  text += boxes(drawn) + texts(drawn) + attached_blocks(drawn) + joined(drawn.lines);
  if (drawn.default_action)
    text += "bdefault:" + *drawn.default_action + (drawn.default_checks ? ":Y" : "") + "\n";
  for (std::size_t i = first ? 1 : 0; i < drawn.order.size(); i++)
    text += gadget_lines(drawn, drawn.order[i]);
  return text;
}

}  // namespace scrim
