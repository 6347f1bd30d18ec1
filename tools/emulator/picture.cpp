// emulator/picture: each run of cells that look the same is one text, which is stretched to the
// cells' width: fonts differ. Line characters are strokes: those of a font would leave gaps.

#include "tools/emulator/picture.h"

#include "tools/emulator/key_names.h"

#include <algorithm>
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdio>

namespace scrim {

static const int cell_width = 9, cell_height = 18, margin = 9;  // SVG units
static const int baseline = 14;                                 // from the top of the cell
static const int key_strip = 30;                                // height of the strip for keys
static const double middle_x = 4.5;  // of a cell; strokes on the middle of a pixel are sharp
static const double middle_y = 9.5;
static const char ink[] = "#e4e4e4", paper[] = "#1c1f26", cursor_color[] = "#ffb454";
static const char edge[] = "#5b6270";  // of the picture, to be seen on a dark page

// The edges of the cell that a line character leads to from the cell's middle.
enum { to_left = 1, to_right = 2, to_top = 4, to_bottom = 8 };

struct line_character {
  std::uint32_t code;
  int edges;
};

static const line_character line_characters[] = {
    {0x2500, to_left | to_right},              // horizontal
    {0x2502, to_top | to_bottom},              // vertical
    {0x250C, to_right | to_bottom},            // upper left corner
    {0x2510, to_left | to_bottom},             // upper right corner
    {0x2514, to_right | to_top},               // lower left corner
    {0x2518, to_left | to_top},                // lower right corner
    {0x251C, to_right | to_top | to_bottom},   // left tee
    {0x2524, to_left | to_top | to_bottom},    // right tee
    {0x252C, to_left | to_right | to_bottom},  // upper tee
    {0x2534, to_left | to_right | to_top},     // lower tee
    {0x253C, to_left | to_right | to_top | to_bottom},
};

static int edges_of(std::uint32_t code) {
  for (const line_character& line : line_characters)
    if (line.code == code) return line.edges;
  return 0;
}

[[gnu::format(printf, 2, 3)]] static void add(std::string& svg, const char* format, ...) {
  char line[400];
  va_list values;
  va_start(values, format);
  vsnprintf(line, sizeof line, format, values);
  va_end(values);
  svg += line;
}

// Whether XML allows the code, and fonts have a character for it.
static bool has_character(std::uint32_t code) {
  if (code < ' ' || (code >= 0x7F && code <= 0x9F)) return false;  // control characters
  if (code >= 0xD800 && code <= 0xF8FF) return false;              // surrogates, private use
  return code != 0xFFFE && code != 0xFFFF && code <= 0x10FFFF;
}

struct entity {
  std::uint32_t code;
  const char* text;
};
static const entity entities[] = {
    {' ', "\u00A0"},  // browsers draw several blanks as one
    {'&', "&amp;"},   //
    {'<', "&lt;"},    //
    {'>', "&gt;"},
};

static void add_character(std::string& svg, std::uint32_t code) {
  for (const entity& it : entities) {
    if (it.code != code) continue;
    svg += it.text;
    return;
  }
  append_utf8(svg, has_character(code) ? code : 0xFFFD);
}

static int x_of(int column) { return margin + column * cell_width; }
static int y_of(int row) { return margin + row * cell_height; }

// Cells of one row that look the same: from `column` to before `end`.
struct run {
  int row, column, end;
};

static bool is_line(const screen_cell& cell) { return edges_of(cell.code) != 0; }

static bool same_look(const screen_cell& left, const screen_cell& right) {
  return left.reverse == right.reverse && left.underline == right.underline &&
         is_line(left) == is_line(right);
}

static run run_at(const Emulator& emulator, int row, int column) {
  const screen_cell first = emulator.cell(row, column);
  int end = column + 1;
  while (end < emulator.columns() && same_look(first, emulator.cell(row, end))) end++;
  return {row, column, end};
}

// The strokes of one line character, as a part of a path.
static void add_strokes(std::string& svg, int left, int top, int edges) {
  const double x = left + middle_x, y = top + middle_y;
  if (edges & (to_left | to_right))
    add(svg, "M%g %gH%g", edges & to_left ? left : x, y, edges & to_right ? left + cell_width : x);
  if (edges & (to_top | to_bottom))
    add(svg, "M%g %gV%g", x, edges & to_top ? top : y, edges & to_bottom ? top + cell_height : y);
}

static void add_lines(std::string& svg, const Emulator& emulator, run cells, const char* color) {
  add(svg, R"(<path stroke="%s" stroke-linecap="square" d=")", color);
  for (int column = cells.column; column < cells.end; column++)
    add_strokes(svg, x_of(column), y_of(cells.row),
                edges_of(emulator.cell(cells.row, column).code));
  svg += "\"/>\n";
}

static void open_text(std::string& svg, int x, int y, int width, const char* color) {
  add(svg, R"(<text x="%d" y="%d" textLength="%d" lengthAdjust="spacingAndGlyphs" fill="%s">)", x,
      y + baseline, width, color);
}

static void add_text(std::string& svg, const Emulator& emulator, run cells, const char* color) {
  auto& [row, column, end] = cells;
  while (column < end && emulator.cell(row, column).code == ' ') column++;
  while (column < end && emulator.cell(row, end - 1).code == ' ') end--;
  if (column == end) return;
  open_text(svg, x_of(column), y_of(row), (end - column) * cell_width, color);
  for (; column < end; column++)
    if (const std::uint32_t code = emulator.cell(row, column).code) add_character(svg, code);
  svg += "</text>\n";
}

static std::string svg_run(const Emulator& emulator, run cells) {
  std::string svg;
  const screen_cell first = emulator.cell(cells.row, cells.column);
  const int x = x_of(cells.column), y = y_of(cells.row);
  const int width = (cells.end - cells.column) * cell_width;
  const char* color = first.reverse ? paper : ink;
  if (first.reverse)
    add(svg, "<rect x=\"%d\" y=\"%d\" width=\"%d\" height=\"%d\" fill=\"%s\"/>\n", x, y, width,
        cell_height, ink);
  if (first.underline)
    add(svg, "<path d=\"M%d %g h%d\" stroke=\"%s\"/>\n", x, y + cell_height - 1.5, width, color);
  (is_line(first) ? add_lines : add_text)(svg, emulator, cells, color);
  return svg;
}

std::vector<std::string> svg_runs(const Emulator& emulator) {
  std::vector<std::string> runs;
  for (int row = 0; row < emulator.rows(); row++) {
    run cells = {row, 0, 0};
    while (cells.end < emulator.columns()) {
      cells = run_at(emulator, row, cells.end);
      runs.push_back(svg_run(emulator, cells));
    }
  }
  return runs;
}

std::string svg_cursor(const Emulator& emulator) {
  if (!emulator.cursor_visible()) return "";
  std::string svg;
  const VTermPos cursor = emulator.cursor();
  add(svg,
      "<rect x=\"%d\" y=\"%d\" width=\"%d\" height=\"%d\" fill=\"%s\" fill-opacity=\"0.45\" "
      "stroke=\"%s\"/>\n",
      x_of(cursor.col), y_of(cursor.row), cell_width, cell_height, cursor_color, cursor_color);
  return svg;
}

// The code of one character, as characters_of() has it.
static std::uint32_t code_of(const std::string& character) {
  std::uint32_t code = static_cast<unsigned char>(character[0]);
  if (character.size() == 1) return code;  // a byte alone is a character of ISO 8859-1
  code &= 0x7FU >> character.size();
  for (const char byte : character.substr(1))
    code = code << 6 | (static_cast<unsigned char>(byte) & 0x3FU);
  return code;
}

// Adds a key at x, from the left of the strip. Returns its width.
static int add_key(std::string& svg, const shown_key& key, int x) {
  const std::string times = key.times > 1 ? " \u00d7" + std::to_string(key.times) : "";
  const auto characters = characters_of(key.text + times);
  const int width = static_cast<int>(characters.size()) * cell_width;
  const int border = key.times > 0 ? cell_width : 0;
  if (border > 0)
    add(svg, R"(<rect x="%d" width="%d" height="%d" rx="4" fill="%s"/>)", x, width + 2 * border,
        cell_height, edge);
  open_text(svg, x + border, 0, width, border > 0 ? ink : cursor_color);
  for (const std::string& character : characters) add_character(svg, code_of(character));
  svg += "</text>\n";
  return width + 2 * border + cell_width;
}

std::string svg_keys(const Emulator& emulator, const std::vector<shown_key>& keys) {
  std::string parts, svg;
  int width = 0;
  for (const shown_key& key : keys) width += add_key(parts, key, width);
  // Of more keys than there is room for, the last ones are seen.
  const int left = std::min(x_of(1), x_of(emulator.columns()) - width);
  add(svg, "<g transform=\"translate(%d %d)\">\n", left, y_of(emulator.rows()) + 13);
  return svg + parts + "</g>\n";
}

static void add_paper(std::string& svg, int width, int height) {
  add(svg, R"(<svg xmlns="http://www.w3.org/2000/svg" width="%d" height="%d" viewBox="0 0 %d %d">
<rect x="0.5" y="0.5" width="%d" height="%d" rx="6" fill="%s" stroke="%s"/>
)",
      width, height, width, height, width - 1, height - 1, paper, edge);
}

std::string text_picture(const Emulator& emulator) {
  std::string text;
  std::size_t used = 0;
  for (int row = 0; row < emulator.rows(); row++) {
    const std::string line = emulator.text(row);
    text += line + "\n";
    if (!line.empty()) used = text.size();
  }
  text.resize(used);
  return text;
}

std::string svg_document(const Emulator& emulator, picture_shape shape, const std::string& parts) {
  const int width = 2 * margin + emulator.columns() * cell_width, end = y_of(emulator.rows());
  std::string svg;
  add_paper(svg, width, end + margin + (shape == with_keys ? key_strip : 0));
  if (shape == with_keys)
    add(svg, "<path d=\"M1 %gH%d\" stroke=\"%s\"/>\n", end + 6.5, width - 1, edge);
  svg += "<g font-family=\"DejaVu Sans Mono,Menlo,Consolas,monospace\" font-size=\"15\">\n";
  return svg + parts + "</g>\n</svg>\n";
}

std::string svg_picture(const Emulator& emulator) {
  std::string parts;
  for (const std::string& run : svg_runs(emulator)) parts += run;
  return svg_document(emulator, screen_alone, parts + svg_cursor(emulator));
}

}  // namespace scrim
