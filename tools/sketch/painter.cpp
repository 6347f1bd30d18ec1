// sketch/painter: nothing is painted over anything else.

#include "tools/sketch/painter.h"

#include "tools/sketch/defaults.h"
#include "tools/sketch/picture.h"
#include "tools/sketch/source.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace scrim {

static bool is_free(const grid& cells, int x, int y) {
  return y > 0 && y + 1 < static_cast<int>(cells.size()) && x > 0 &&
         x + 1 < static_cast<int>(cells[0].size()) &&
         cells[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] == blank;
}

// Paints the text where its cells are free; else paints nothing, and returns false. Its blanks
// leave what is there.
static bool put(grid& cells, int x, int y, const std::string& text) {
  const std::vector<std::string> row = cells_of(text);
  int column = x;
  for (const std::string& cell : row) {
    if (cell != blank && !is_free(cells, column, y)) return false;
    column++;
  }
  std::string* to =
      row.empty() ? nullptr : &cells[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
  for (const std::string& cell : row) {
    if (cell != blank) *to = cell;
    to++;
  }
  return true;
}

static std::string edge(int w, const std::string& inside) {
  std::string text(static_cast<std::size_t>(w), '-');
  text.front() = text.back() = '+';
  return text.replace(static_cast<std::size_t>(w) / 2 - inside.size() / 2, inside.size(), inside);
}

static bool is_free_row(const grid& cells, int x, int y, int w) {
  for (int i = 0; i < w; i++)
    if (!is_free(cells, x + i, y)) return false;
  return true;
}

static bool put_frame(grid& cells, const extent& at, const std::string& upper_edge) {
  const int right = at.x + at.w - 1, bottom = at.y + at.h - 1;
  bool free = at.h > 1;
  for (int y = at.y; y <= bottom && free; y++)
    free = y == at.y || y == bottom ? is_free_row(cells, at.x, y, at.w)
                                    : is_free(cells, at.x, y) && is_free(cells, right, y);
  if (!free) return false;
  for (int y = at.y + 1; y < bottom; y++)
    for (const int x : {at.x, right}) put(cells, x, y, "|");
  put(cells, at.x, at.y, upper_edge);
  return put(cells, at.x, bottom, edge(at.w, ""));
}

static std::string padded(std::string text, int w) {
  text.resize(static_cast<std::size_t>(w), ' ');
  return text;
}

static std::string key_of(const gadget& it, const std::string& otherwise) {
  return it.variable.empty() ? otherwise : it.variable;
}

static bool put_window(grid& cells, const gadget& it) {
  const auto& [x, y, w, h] = it.cells;
  if (w < 7) return false;
  const auto room = static_cast<std::size_t>(w - 6);
  const std::string name =
      it.file.empty() || it.file.size() > room ? key_of(it, "file").substr(0, room) : it.file;
  for (int row = y; row < y + h; row++)
    if (!is_free_row(cells, x, row, w)) return false;
  return put_frame(cells, it.cells, edge(w, "").replace(2, name.size() + 2, " " + name + " "));
}

// Paints brackets and what is between them; all their cells have to be free.
static bool put_gadget(grid& cells, int x, int y, const std::string& text) {
  return is_free_row(cells, x, y, static_cast<int>(text.size())) && put(cells, x, y, text);
}

static bool put_gadget(grid& cells, const gadget& it) {
  const auto& [x, y, w, h] = it.cells;
  switch (it.what) {
    case kind::button:
      return put_gadget(cells, x, y, it.label + (it.label[0] == '<' ? ">" : ")"));
    case kind::field:
      return w > 0 && put_gadget(cells, x - 1, y, "[" + padded(key_of(it, "FIELD"), w) + "]");
    case kind::list:
      return put_gadget(cells, x - 1, y, "[" + padded(key_of(it, "LIST"), w - 1) + "v]");
    case kind::checkbox:
      return put_gadget(cells, x - 1, y, it.value == "X" ? "[X]" : "[ ]");
    case kind::exclusive:
      return put_gadget(cells, x - 1, y, it.value == "X" ? "(X)" : "( )");
    case kind::window:
      return put_window(cells, it);
  }
  return false;
}

static bool crosses(const read_text& it, const extent& cells) {
  return it.run.y >= cells.y && it.run.y < cells.y + cells.h && it.x < cells.x + cells.w &&
         it.end > cells.x;
}

static bool is_inside(const read_text& it, const extent& cells) {
  return it.run.y > cells.y && it.run.y < cells.y + cells.h - 1 && it.x > cells.x &&
         it.end < cells.x + cells.w;
}

// Whether a text leaves what frames and texts before it have painted: what is painted later covers
// it, with its blanks too.
static bool stands_alone(const read_form& form, const read_text& it) {
  for (const read_box& box : form.boxes)
    if (crosses(it, box.cells) && !is_inside(it, box.cells)) return false;
  for (const gadget& other : form.drawn.gadgets)
    if (other.what == kind::window && crosses(it, other.cells)) return false;
  for (const read_text* before = form.texts.data(); before != &it; before++)
    if (crosses(it, {before->x, before->run.y, before->end - before->x})) return false;
  return true;
}

// A title that the frame's edge can hold: none of its own ends is taken for the edge.
bool is_edge_title(const sketch& drawn) {
  const std::string& title = drawn.title;
  return static_cast<int>(title.size()) <= drawn.cells.w - 2 &&
         (title.empty() || (title.front() != '-' && title.back() != '-')) &&
         std::none_of(title.begin(), title.end(),
                      [](char c) { return (c & 0x80) != 0 || c == '\t'; });
}

static grid empty_window(const sketch& drawn) {
  const auto w = static_cast<std::size_t>(drawn.cells.w),
             h = static_cast<std::size_t>(drawn.cells.h);
  grid cells(h, std::vector<std::string>(w, blank));
  for (auto& row : cells) row.front() = row.back() = "|";
  cells.front() = cells_of(edge(drawn.cells.w, is_edge_title(drawn) ? drawn.title : ""));
  cells.back() = cells_of(edge(drawn.cells.w, ""));
  return cells;
}

// Attached texts.

static const char marked_blank = static_cast<char>(' ' | 0x80);

std::string attached_line(std::string line) {
  if (!line.empty() && line[0] == marked_blank) line[0] = ' ';
  return line;
}

// Whether the line paints its first column, and has no marks besides.
static bool is_plain(const std::string& line) {
  const std::string shown = attached_line(line);
  return !line.empty() && line[0] != ' ' &&
         std::none_of(shown.begin(), shown.end(), [](char c) { return (c & 0x80) != 0; });
}

static bool is_even(const read_attached& it) {
  return !it.lines.empty() &&
         std::all_of(it.lines.begin(), it.lines.end(), [&](const std::string& line) {
           return line.size() == it.lines[0].size() && is_plain(line);
         });
}

static bool put_marker(grid& cells, const read_attached& it, const std::string& letters) {
  if (it.verbatim || !is_even(it) || it.lines[0].size() < letters.size() + 2) return false;
  return put_gadget(cells, it.cells.x, it.cells.y,
                    "{" + padded(letters, static_cast<int>(it.lines[0].size()) - 2) + "}");
}

static bool share_place(const std::vector<read_attached>& all) {
  return all.size() == 2 && !all[1].verbatim && is_even(all[0]) && is_even(all[1]) &&
         all[0].cells == all[1].cells && all[0].lines[0].size() == all[1].lines[0].size();
}

static void paint_attached(grid& cells, std::vector<read_attached>& all) {
  if (share_place(all)) {
    all[0].verbatim = all[1].verbatim = !put_marker(cells, all[0], "ab");
  } else {
    for (read_attached& it : all) it.verbatim = !put_marker(cells, it, it.letter);
  }
}

static read_text* text_at(read_form& form, int x, int y, const std::string& text) {
  const auto found = std::find_if(form.texts.begin(), form.texts.end(), [&](const read_text& it) {
    return it.run.x == x && it.run.y == y && it.run.text == text && !it.verbatim;
  });
  return found == form.texts.end() ? nullptr : &*found;
}

// Whether texts stand in for the frame of a scroll window, as they do where frames do not come
// back.
static bool has_stand_in(read_form& form, const extent& frame) {
  const auto& [x, y, w, h] = frame;
  if (w < 3 || h < 2) return false;
  std::vector<read_text*> found = {text_at(form, x, y, edge(w, "")),
                                   text_at(form, x, y + h - 1, edge(w, ""))};
  for (int row = y + 1; row < y + h - 1; row++)
    for (const int column : {x, x + w - 1}) found.push_back(text_at(form, column, row, "|"));
  if (std::find(found.begin(), found.end(), nullptr) != found.end()) return false;
  for (read_text* it : found) it->stands_in = true;
  return true;
}

grid paint(read_form& form) {
  grid cells = empty_window(form.drawn);
  // A drawn frame would be written in another way than the screen file has it.
  const bool fleeting = comes_back(form.drawn);
  for (read_text& it : form.texts) it.stands_in = false;
  for (gadget& it : form.drawn.gadgets)
    if (fleeting && it.what == kind::window && !it.verbatim)
      it.verbatim = !has_stand_in(form, it.cells);
  for (read_box& it : form.boxes)
    it.verbatim = it.verbatim || fleeting || it.cells.w < 2 ||
                  !put_frame(cells, it.cells, edge(it.cells.w, ""));
  for (gadget& it : form.drawn.gadgets) it.verbatim = it.verbatim || !put_gadget(cells, it);
  for (read_text& it : form.texts)
    it.verbatim = !it.stands_in && (it.verbatim || !stands_alone(form, it) ||
                                    !put(cells, it.run.x, it.run.y, it.run.text));
  paint_attached(cells, form.attached);
  return cells;
}

}  // namespace scrim
