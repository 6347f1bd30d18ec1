// runtime/painting: turns the records of a screen into cells of the terminal.
// Stored texts stay as they are, but for the blank that marks the start of a line: characters that
// the terminal cannot show are replaced when they are drawn.

#include "runtime/painting.h"

#include "common/program.h"
#include "common/text.h"
#include "screens/file_data.h"
#include "term/drawing.h"
#include "term/endings.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace scrim {

static const char marked_blank = static_cast<char>(' ' | 0x80);

// Where the first shown line of a scroll window begins. Scrolling goes on from there, so that it
// takes the time of the lines moved, not of all lines above.
struct swin_place {
  swin_place* next;
  const gadget_list* swin;
  int line;  // lines of the data before `start`
  const char* start;
};
static swin_place* places = nullptr;

int screen_paint() {
  const int x = curscrn->windx, y = curscrn->windy;
  const int w = curscrn->windw, h = curscrn->windh;
  if (curscrn->screentype & ST_OVERLAY) {
    for (int row = 1; row <= h - 2; row++) stand(x + 1, y + row, "", 0, w - 2);
    return 0;
  }
  const bool clear = (curscrn->screentype & ST_CLEAR) != 0;
  if (clear) sclear();
  do_box_c(x, y, w, h, !clear);
  const int n = static_cast<int>(std::strlen(curscrn->screentitle));
  if (n > 0) stand(x + (w + 1 - n) / 2, y, curscrn->screentitle, ATT_STANDOUT, n);
  return 0;
}

// Leading blanks move the text to the right and leave the cells under them as they are; a marked
// blank ends them, and is an ordinary blank from then on. A line of blanks alone paints nothing.
static void paint_line(int x, int y, char* line, int n) {
  int indent = 0;
  while (indent < n && line[indent] == ' ') indent++;
  if (indent == n) return;
  if (line[indent] == marked_blank) line[indent] = ' ';
  stand(x + indent, y, line + indent, 0, n - indent);
}

static void put_bracket(int x, int y, char bracket) {
  char text[2] = {bracket, 0};
  sposition(x, y);
  display(text);
}

static void put_brackets(const gadget_list& gadget) {
  put_bracket(gadget.x - 1, gadget.y, '[');
  put_bracket(gadget.x + gadget.w, gadget.y, ']');
}

const char* shown_state(const gadget_list& box) { return *box.text == '_' ? " " : box.text; }

int display_field(gadget_list* gadget) {
  switch (kind_of(*gadget)) {
    case GF_BUTTON:
      stand(gadget->x, gadget->y, gadget->text, ATT_HOTKEY, gadget->w);
      break;
    case GF_TEXT:
      paint_line(gadget->x, gadget->y, gadget->text, static_cast<int>(std::strlen(gadget->text)));
      break;
    case GF_CHECKBOX:
    case GF_XCHECKBOX:
      put_brackets(*gadget);
      stand(gadget->x, gadget->y, shown_state(*gadget), ATT_BRACKET, 1);
      break;
    case GF_ETEXT:
    case GF_POPLIST:
      put_brackets(*gadget);
      stand(gadget->x, gadget->y, gadget->text, ATT_BRACKET | (gadget->flags & GF_PASSWORD),
            gadget->w);
      break;
    default:
      break;
  }
  return 0;
}

static swin_place& place_of(const gadget_list& swin) {
  for (swin_place* place = places; place; place = place->next)
    if (place->swin == &swin) return *place;
  auto* place = static_cast<swin_place*>(
      allocate(sizeof(swin_place), "Can't allocate memory for file data", exit_screen));
  *place = {places, &swin, 0, swin.filedata};
  return *(places = place);
}

// The start of the line behind `line`, or the end of the data.
static const char* line_behind(const char* line) {
  const char* newline = std::strchr(line, '\n');
  return newline ? newline + 1 : line + std::strlen(line);
}

// The start of the line before `line`, which is not the first.
static const char* line_before(const char* data, const char* line) {
  auto length = static_cast<std::size_t>(line - data);
  if (data[length - 1] == '\n') length--;
  return data + (std::string_view(data, length).rfind('\n') + 1);  // none found: data
}

// The start of line n (from 0) of a window's data, or the end of the data: from the last place, or
// from the data's start or end where that is nearer.
static const char* data_line(const gadget_list& swin, int n) {
  swin_place& place = place_of(swin);
  const char* end = data_end(swin);
  const std::int64_t lines = std::int64_t{swin.l} + (end > swin.filedata && end[-1] != '\n');
  if (n < place.line / 2) {
    place.line = 0;
    place.start = swin.filedata;
  } else if (lines < INT_MAX && n > (place.line + lines) / 2) {  // more were not counted
    place.line = static_cast<int>(lines);
    place.start = end;
  }
  for (; place.line < n && *place.start; place.line++) place.start = line_behind(place.start);
  for (; place.line > n; place.line--) place.start = line_before(swin.filedata, place.start);
  return place.start;
}

// The start of the line that a row of the window shows.
static const char* row_line(const gadget_list& swin, int row) {
  const char* at = data_line(swin, swin.swoff);
  for (; row > 1 && *at; row--) at = line_behind(at);
  return at;
}

// A carriage return before a newline belongs to it.
static bool ends_line(const char* at) {
  return !*at || *at == '\n' || (*at == '\r' && at[1] == '\n');
}

static void paint_row(const gadget_list& swin, int row, const char* at) {
  static char text[drawn_limit + 1];
  const int width = std::min(swin.w - 4, drawn_limit);
  int n = 0;
  for (; n < width && !ends_line(at + n); n++) text[n] = at[n];
  text[n] = 0;
  const bool highlighted = std::int64_t{swin.swhigh} - swin.swoff == row;
  stand(swin.x + 2, swin.y + row, text, highlighted ? ATT_STANDOUT : 0, width);
}

// Paints the rows from `first` to `last` as far as they are rows of the window, 1 to h - 2.
static void paint_rows(const gadget_list& swin, int first, int last) {
  first = std::max(first, 1);
  last = std::min({last, swin.h - 2, drawn_limit});
  if (first > last) return;
  const char* at = row_line(swin, first);
  for (int row = first; row <= last; row++) {
    paint_row(swin, row, at);
    if (row < last) at = line_behind(at);
  }
}

static void paint_window(const gadget_list& swin, int line) {
  paint_rows(swin, line == -1 ? 1 : line, line == -1 ? swin.h - 2 : line);
  sposition(swin.x + swin.swinx, swin.y + swin.swiny);
}

int display_swin(gadget_list* swin, int line) {
  follow_cursor(*swin);
  paint_window(*swin, line);
  return 0;
}

// Frames and scroll-window rows that directives of the screen file asked for. A scroll window's
// highlight and value are not computed here: its directives did that when they were read.
static void draw_at_first() {
  const first_drawing* drawing = curscrn->paintings++ > 0 ? nullptr : curscrn->drawings;
  for (; drawing; drawing = drawing->next) {
    if (drawing->rows) {
      paint_window(*drawing->rows, -1);
    } else {
      do_box_c(drawing->x, drawing->y, drawing->w, drawing->h, 0);
    }
  }
}

int PaintScreen() {
  screen_paint();
  draw_at_first();
  for (gadget_list* gadget = curscrn->gadget_lp; gadget; gadget = gadget->next)
    display_field(gadget);
  return 0;
}

int do_atext(save_text* txt) {
  if (!txt) return 0;
  int row = txt->y;
  for (char* line = txt->text; *line; row++) {
    const auto n = static_cast<int>(std::strcspn(line, "\n"));
    paint_line(txt->x, row, line, n);
    line += n + (line[n] == '\n');
  }
  return 0;
}

}  // namespace scrim
