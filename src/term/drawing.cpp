// term/drawing: the routines that draw, in capability strings and plain text.
// Strings go out one by one and text straight behind them, so both arrive in program order.

#include "term/drawing.h"

#include "common/program.h"
#include "common/text.h"
#include "term/capabilities.h"
#include "term/tty.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>

#define NCURSES_NOMACROS
#include <curses.h>
#include <term.h>

namespace scrim {

static const int piece = 79;  // characters that one write of a text field takes

static char pbuf[piece + 1];  // text of a field on its way to the terminal
static int gathered = 0;      // characters in pbuf so far
static char bb[160];          // blanks of a frame's inside

int sposition(int x, int y) {
  if (!T_CUP) return 0;
  x = std::max(x, 0);
  y = std::max(y, 0);
  return M_putp(use_termcap ? tgoto(T_CUP, x, y)
                            : tparm(T_CUP, static_cast<long>(y), static_cast<long>(x)));
}

int sclear() {
  M_putp(T_CLEAR);
  return M_putp(T_SGR0);
}

int display(char* s) {
  const std::size_t length = std::strlen(s);
  std::replace(s, s + length, '\t', '@');
  return write_terminal(s, length);
}

static void write_character(char c) { write_terminal(&c, 1); }

// A field is gathered in pbuf and sent in pieces of up to `piece` characters, a write each.
static void send_piece() {
  pbuf[gathered] = 0;
  if (gathered > 0) display(pbuf);
  gathered = 0;
}

static void put(const char* s, int n) {
  for (int i = 0; i < n; i++) {
    if (gathered == piece) send_piece();
    pbuf[gathered++] = s[i];
  }
}

static void repeat(char c, int n) {
  for (; n > 0; n--) put(&c, 1);
}

static void put_text(const char* s, int n) {
  while (n > 0) {
    const int length = static_cast<int>(printable_length(s, static_cast<std::size_t>(n)));
    put(length > 0 ? s : "?", std::max(length, 1));
    s += std::max(length, 1);
    n -= std::max(length, 1);
  }
}

static void write_text(const char* s, int n) {
  put_text(s, n);
  send_piece();
}

// On a terminal whose attributes take cells there is no cell for the underline of one character.
static void write_marked(char c, int att) {
  const bool underlines = attrib_space == 0;
  const char plain = static_cast<char>(c & 0x7f);
  if (underlines) M_putp(T_ULON);
  write_text(&plain, 1);
  if (underlines) M_putp(T_ULOFF);
  if (underlines && (att & ATT_STANDOUT)) M_putp(T_STANDON);
}

static void write_label(const char* s, int n, int pad, int att) {
  auto marked = [](char c) { return (c & 0x80) != 0; };
  const char* end = s + n;
  while (s < end) {
    const char* mark = std::find_if(s, end, marked);
    write_text(s, static_cast<int>(mark - s));
    if (mark < end) write_marked(*mark++, att);
    s = mark;
  }
  repeat(' ', pad - n);
  send_piece();
}

// Writes the first n characters of s, or one "*" for each, and blanks up to `width`.
static void write_field(const char* s, int n, int width, bool masked) {
  if (masked) {
    repeat('*', n);
  } else {
    put_text(s, n);
  }
  repeat(' ', width - n);
  send_piece();
}

int stand(int x, int y, const char* s, int att, int pad) {
  bool bracketed = (att & (ATT_BRACKET | ATT_BRACKET_KINDS)) != 0;
  if (att & ATT_HOTKEY) bracketed = false;
  const bool cookies = attrib_space > 0;
  const int n = static_cast<int>(strnlen(s, static_cast<std::size_t>(std::max(pad, 0))));

  sposition(x - attrib_space, y);
  if (att & ATT_STANDOUT) {
    M_putp(T_STANDON);
  } else if (cookies) {
    write_character(bracketed ? '[' : ' ');
  }
  if ((att & ATT_HOTKEY) && !(att & ATT_MASKED)) {
    write_label(s, n, pad, att);
  } else {
    write_field(s, n, pad, (att & ATT_MASKED) != 0);
  }
  if (att & ATT_STANDOUT) return M_putp(cookies ? T_DIM : T_STANDOFF);
  if (cookies) write_character(bracketed ? ']' : ' ');
  return 0;
}

static void blank_inside(int n) {
  M_putp(graph_off);
  std::memset(bb, ' ', sizeof bb);
  for (const int size = sizeof bb; n > 0; n -= size)
    write_terminal(bb, static_cast<std::size_t>(std::min(n, size)));
  M_putp(graph_on);
}

// The edge between columns x and `end`, with its corners.
static void draw_edge(int x, int end, int row, int left, int right) {
  if (row < 0) return;
  sposition(x, row);
  if (x >= 0) write_character(cxxxgraph[left]);
  for (int column = std::max(x + 1, 0); column < end; column++)
    write_character(cxxxgraph[line_horizontal]);
  write_character(cxxxgraph[right]);
}

static void draw_sides(int x, int end, int row, bool blanks) {
  if (x >= 0 || blanks) sposition(x, row);
  if (x >= 0) write_character(cxxxgraph[line_vertical]);
  if (blanks) {
    blank_inside(end - std::max(x + 1, 0));
  } else {
    sposition(end, row);
  }
  write_character(cxxxgraph[line_vertical]);
}

// The last of `size` cells from `start` on. A frame far left of the screen, or above it, may still
// reach into it: cells count towards the limit from 0 on.
static int last_cell(int start, int size) {
  return start + std::min(size, drawn_limit - std::min(start, 0)) - 1;
}

int do_box_c(int x, int y, int w, int h, int cs) {
  const int end = last_cell(x, w), bottom = last_cell(y, h);
  if (w < 2 || h < 1 || end < 0) return 0;
  M_putp(graph_on);
  draw_edge(x, end, y, line_upper_left, line_upper_right);
  for (int row = std::max(y + 1, 0); row < bottom; row++) draw_sides(x, end, row, cs != 0);
  draw_edge(x, end, bottom, line_lower_left, line_lower_right);
  return M_putp(graph_off);
}

int do_box() {
  int box[4];
  for (int i = 0; i < 4; i++) read_number(largv[i], box[i]);
  return do_box_c(box[0], box[1], box[2], box[3], 0);
}

// Cells of a bar `wid` wide that stand for curr of tot: none when there is nothing to measure.
static std::int64_t filled_cells(int wid, int curr, int tot) {
  return tot <= 0 || curr < 0 ? 0 : std::int64_t{wid} * curr / tot;
}

static void draw_scale_mark(int x, int y) {
  if (x >= 0) stand(x, y, cbuf, 0, static_cast<int>(std::strlen(cbuf)));
}

int do_therm(int y, int wid, int curr, int tot) {
  const int left = (layout_columns - wid) / 2;
  copy_text(cbuf, "0");
  draw_scale_mark(left, y + 1);
  for (int percent = 25; percent <= 100; percent += 25) {
    const int length = snprintf(cbuf, sizeof cbuf, "%d", percent);
    draw_scale_mark(left + wid * percent / 100 - length, y + 1);
  }
  const std::int64_t shown = filled_cells(wid, curr, tot) + std::min(left, 0);
  const auto filled = static_cast<int>(std::clamp<std::int64_t>(shown, 0, sizeof cbuf - 1));
  std::memset(cbuf, ' ', static_cast<std::size_t>(filled));
  cbuf[filled] = 0;
  return stand(std::max(left, 0), y, cbuf, ATT_STANDOUT, filled);
}

}  // namespace scrim
