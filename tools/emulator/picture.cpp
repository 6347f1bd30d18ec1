// emulator/picture: text is drawn in runs of one look, stretched to the cells' width, so that it
// fits whatever font the viewer has. Lines and corners are strokes: a font's would leave gaps.

#include "tools/emulator/picture.h"

#include <cstdarg>
#include <cstdio>

namespace scrim {

namespace {

constexpr int cell_width = 9, cell_height = 18, margin = 9;  // SVG units
constexpr int baseline = 14;                                 // from the top of the cell
constexpr double middle_x = 4.5, middle_y = 9.5;             // on a pixel, so strokes are sharp
constexpr char ink[] = "#e4e4e4", paper[] = "#1c1f26", cursor_color[] = "#ffb454";
constexpr char edge[] = "#5b6270";  // shows where the picture ends on a dark page

// Which edges of the cell a line character joins to its middle.
enum { to_left = 1, to_right = 2, to_top = 4, to_bottom = 8 };

struct line_character {
  uint32_t code;
  int edges;
};

const line_character line_characters[] = {
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

int edges_of(uint32_t code) {
  for (const line_character& line : line_characters)
    if (line.code == code) return line.edges;
  return 0;
}

[[gnu::format(printf, 2, 3)]] void add(std::string& svg, const char* format, ...) {
  char line[400];
  va_list values;
  va_start(values, format);
  vsnprintf(line, sizeof line, format, values);
  va_end(values);
  svg += line;
}

// Codes that XML does not allow, or that no font has a character for.
bool has_character(uint32_t code) {
  if (code < ' ' || (code >= 0x7F && code <= 0x9F)) return false;  // control characters
  if (code >= 0xD800 && code <= 0xF8FF) return false;              // surrogates, private use
  return code != 0xFFFE && code != 0xFFFF && code <= 0x10FFFF;
}

void add_escaped(std::string& svg, uint32_t code) {
  switch (code) {
    case '&':
      svg += "&amp;";
      break;
    case '<':
      svg += "&lt;";
      break;
    case '>':
      svg += "&gt;";
      break;
    default:
      append_utf8(svg, has_character(code) ? code : 0xFFFD);
  }
}

int x_of(int column) { return margin + column * cell_width; }
int y_of(int row) { return margin + row * cell_height; }

// The strokes of one line character, to go into a path.
void add_strokes(std::string& svg, int left, int top, int edges) {
  const double x = left + middle_x, y = top + middle_y;
  if ((edges & (to_left | to_right)) != 0)
    add(svg, "M%g %gH%g", (edges & to_left) != 0 ? left : x, y,
        (edges & to_right) != 0 ? left + cell_width : x);
  if ((edges & (to_top | to_bottom)) != 0)
    add(svg, "M%g %gV%g", x, (edges & to_top) != 0 ? top : y,
        (edges & to_bottom) != 0 ? top + cell_height : y);
}

void add_lines(std::string& svg, const Emulator& emulator, int row, int column, int end) {
  add(svg, "<path stroke=\"%s\" stroke-linecap=\"square\" d=\"",
      emulator.cell(row, column).reverse ? paper : ink);
  for (; column < end; ++column)
    add_strokes(svg, x_of(column), y_of(row), edges_of(emulator.cell(row, column).code));
  svg += "\"/>\n";
}

void add_text(std::string& svg, const Emulator& emulator, int row, int column, int end) {
  auto blank = [&](int at) { return emulator.cell(row, at).code == ' '; };
  while (column < end && blank(column)) ++column;
  while (column < end && blank(end - 1)) --end;
  if (column == end) return;
  add(svg,
      "<text x=\"%d\" y=\"%d\" textLength=\"%d\" lengthAdjust=\"spacingAndGlyphs\" fill=\"%s\">",
      x_of(column), y_of(row) + baseline, (end - column) * cell_width,
      emulator.cell(row, column).reverse ? paper : ink);
  for (int at = column; at < end; ++at)
    if (uint32_t code = emulator.cell(row, at).code; code != 0) add_escaped(svg, code);
  svg += "</text>\n";
}

// The cells from column to end have one look.
void add_run(std::string& svg, const Emulator& emulator, int row, int column, int end) {
  const screen_cell first = emulator.cell(row, column);
  const int width = (end - column) * cell_width;
  if (first.reverse)
    add(svg, "<rect x=\"%d\" y=\"%d\" width=\"%d\" height=\"%d\" fill=\"%s\"/>\n", x_of(column),
        y_of(row), width, cell_height, ink);
  if (first.underline)
    add(svg, "<path d=\"M%d %g h%d\" stroke=\"%s\"/>\n", x_of(column),
        y_of(row) + cell_height - 1.5, width, first.reverse ? paper : ink);
  if (edges_of(first.code) != 0) {
    add_lines(svg, emulator, row, column, end);
  } else {
    add_text(svg, emulator, row, column, end);
  }
}

bool same_look(const screen_cell& left, const screen_cell& right) {
  return left.reverse == right.reverse && left.underline == right.underline &&
         (edges_of(left.code) != 0) == (edges_of(right.code) != 0);
}

void add_cursor(std::string& svg, const Emulator& emulator) {
  if (!emulator.cursor_visible()) return;
  const VTermPos cursor = emulator.cursor();
  add(svg,
      "<rect x=\"%d\" y=\"%d\" width=\"%d\" height=\"%d\" fill=\"%s\" fill-opacity=\"0.45\" "
      "stroke=\"%s\"/>\n",
      x_of(cursor.col), y_of(cursor.row), cell_width, cell_height, cursor_color, cursor_color);
}

}  // namespace

std::string text_picture(const Emulator& emulator) {
  std::string text;
  size_t used = 0;
  for (int row = 0; row < emulator.rows(); ++row) {
    const std::string line = emulator.text(row);
    text += line + "\n";
    if (!line.empty()) used = text.size();
  }
  text.resize(used);
  return text;
}

std::string svg_picture(const Emulator& emulator) {
  const int width = 2 * margin + emulator.columns() * cell_width;
  const int height = 2 * margin + emulator.rows() * cell_height;
  std::string svg;
  add(svg,
      "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%d\" height=\"%d\" "
      "viewBox=\"0 0 %d %d\">\n<rect x=\"0.5\" y=\"0.5\" width=\"%d\" height=\"%d\" rx=\"6\" "
      "fill=\"%s\" stroke=\"%s\"/>\n",
      width, height, width, height, width - 1, height - 1, paper, edge);
  add(svg,
      "<g font-family=\"DejaVu Sans Mono,Menlo,Consolas,monospace\" font-size=\"15\" "
      "xml:space=\"preserve\">\n");
  for (int row = 0; row < emulator.rows(); ++row) {
    for (int column = 0, end; column < emulator.columns(); column = end) {
      const screen_cell first = emulator.cell(row, column);
      for (end = column + 1; end < emulator.columns(); ++end)
        if (!same_look(first, emulator.cell(row, end))) break;
      add_run(svg, emulator, row, column, end);
    }
  }
  add_cursor(svg, emulator);
  return svg + "</g>\n</svg>\n";
}

}  // namespace scrim
