// screens/layout: the directives that set up a screen rather than a gadget of its own: window,
// name and title, default action, frames and lines of text.

#include "common/program.h"
#include "common/text.h"
#include "screens/directives.h"
#include "screens/model.h"
#include "screens/reader.h"

#include <cstring>

namespace scrim {

static const int full_width = 79;   // of a full-screen window: the last column stays free, since
static const int full_height = 23;  // writing into a terminal's last cell may scroll it
static const int text_column = 4;   // of a text block, inside the window
static const int text_row = 2;

static const char* rest_of_line() {
  const char* rest = first_item(cbuf);
  return rest ? rest : "";
}

// An option is told by its first five characters.
static bool is_option(const char* text, const char* option) {
  return std::strncmp(text, option, 5) == 0;
}

int f_fulls() {
  const char* option = rest_of_line();
  int type = ST_FULLS;
  if (is_option(option, "clear")) {
    type |= ST_CLEAR;
  } else if (is_option(option, "overlay")) {
    type |= ST_OVERLAY;
  }
  s_screen[curscreen].screentype = type;
  return screen_core(0, 0, full_width, full_height);
}

int f_pop() {
  int size[most_numbers];
  const char* at = nullptr;
  first_numbers(at, size);
  s_screen[curscreen].screentype = is_option(at ? at : "", "clear") ? ST_POP | ST_CLEAR : ST_POP;
  return screen_core((layout_columns - size[0]) / 2, (layout_rows - size[1]) / 2, size[0], size[1]);
}

int f_name() {
  copy_text(s_screen[curscreen].screenname, rest_of_line());
  return 0;
}

int f_title() {
  copy_text(s_screen[curscreen].screentitle, rest_of_line());
  return 0;
}

int f_table() {
  copy_text(dbtablename, rest_of_line());
  return 0;
}

int f_bdefault() {
  const char* at = first_item(cbuf);
  copy_text(s_screen[curscreen].default_string, next_item(at));
  if (at && *at == 'Y') s_screen[curscreen].screentype |= ST_VALIDATE;
  return 0;
}

int f_box() {
  int box[most_numbers];
  const char* at = nullptr;
  first_numbers(at, box);
  const per_screen& screen = s_screen[curscreen];
  draw_frame_at_first(screen.windx + box[0], screen.windy + box[1], box[2], box[3]);
  return 0;
}

int f_text() {
  const per_screen& screen = s_screen[curscreen];
  for (int row = 0; next_block_line(); row++) {
    gadget_list* line = CreateGadget();
    line->flags = GF_TEXT;
    line->x = screen.windx + text_column;
    line->y = screen.windy + text_row + row;
    line->w = static_cast<int>(std::strlen(tbuf));
    copy_text(line->text, tbuf);
  }
  return 0;
}

}  // namespace scrim
