// screens/windows_and_lists: the directives of scroll windows and pop lists.
// Frames and rows are kept for the first painting of their screen: there is no terminal yet.

#include "common/program.h"
#include "common/text.h"
#include "screens/directives.h"
#include "screens/file_data.h"
#include "screens/model.h"
#include "screens/reader.h"
#include "term/endings.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string_view>

namespace scrim {

static const int farthest_row = INT_MAX / 2;  // of a cursor: a window's place can still be added
static const char no_memory[] = "Can't allocate memory for popup list";

// A directive that shows rows takes the highlight to the cursor at once, and the value with it; the
// rows are drawn at the first painting of the screen.
static void show_rows(gadget_list& swin) {
  follow_cursor(swin);
  draw_rows_at_first(swin);
}

gadget_list* f_swin_core() {
  per_screen& screen = s_screen[curscreen];
  int place[most_numbers];
  const char* at = nullptr;
  first_numbers(at, place);
  screen.gadgetc++;
  gadget_list* swin = CreateGadget();
  swin->x = screen.windx + place[0];
  swin->y = screen.windy + place[1];
  swin->w = place[2];
  swin->h = place[3];
  swin->swhigh = -1;
  swin->swinx = swin->swiny = 1;
  char path[scratch_size];
  copy_text(path, next_item(at));
  if (at) copy_text(swin->op, std::string_view(at, word_length(at)));
  if (!read_file_data(*swin, path)) refuse(exit_screen, {"Can't open '", path, "'"});
  swin->flags = GF_SWIN;
  draw_frame_at_first(swin->x, swin->y, swin->w, swin->h);
  if (!swdefer) show_rows(*swin);
  screen.last_swin = swin;
  return swin;
}

int f_swin() {
  f_swin_core();
  return 0;
}

int f_dswin() {
  f_swin_core()->flags |= GF_DEFAULT;
  return 0;
}

// The scroll window declared last, which the line is about; null: the screen has none, and the line
// is refused.
static gadget_list* last_window(const char* complaint) {
  gadget_list* swin = s_screen[curscreen].last_swin;
  if (!swin) refuse(exit_screen, {complaint});
  return swin;
}

int f_swhigh() {
  gadget_list* last = last_window("swhigh with no swin");
  if (!last) return 0;
  gadget_list& swin = *last;
  const char* argument = first_item(cbuf);
  if (argument && std::string_view(argument).starts_with("cursor")) {
    swin.flags |= GF_SWHIGH | GF_MODIFIED;
    write_position(swin);
  } else {
    int line[most_numbers];
    first_numbers(argument, line, INT_MAX);
    swin.swhigh = line[0];
  }
  if (!swdefer) show_rows(swin);
  return 0;
}

int f_swpos() {
  gadget_list* last = last_window("swpos with no swin");
  if (!last) return 0;
  gadget_list& swin = *last;
  const char* at = nullptr;
  int position[most_numbers];  // the cursor's line, lines scrolled off
  first_numbers(at, position, INT_MAX);
  swin.swoff = std::max(position[1], 0);
  const std::int64_t row = std::int64_t{position[0]} - swin.swoff;
  swin.swiny = static_cast<int>(std::clamp<std::int64_t>(row, -farthest_row, farthest_row));
  show_rows(swin);
  swdefer = 0;
  return 0;
}

int f_swdefer() {
  swdefer = 1;
  return 0;
}

// The decimal form of n, in memory of its own.
static char* decimal_word(int n) {
  const std::size_t size = 12;
  auto* word = static_cast<char*>(allocate(size, no_memory, exit_directive));
  snprintf(word, size, "%d", n);
  return word;
}

// Splits the line into its items and returns the longest of those from the third on, in columns.
static std::size_t split_items(char* line, char** items) {
  std::size_t longest = 0;
  for (int i = 0; line; i++) {
    items[i] = line;
    line = std::strchr(line, ':');
    if (line) *line++ = 0;
    if (i >= 2) longest = std::max(longest, std::strlen(items[i]));
  }
  return longest;
}

int f_poplist() {
  const int text_item = 2, name_item = 3;  // the list's column and row take their places later
  const std::size_t fewest_items = 6;
  per_screen& screen = s_screen[curscreen];
  screen.gadgetc++;
  const std::string_view line = cbuf;
  const auto count = static_cast<std::size_t>(std::count(line.begin(), line.end(), ':')) + 1;
  if (count < fewest_items) {
    refuse(exit_directive, {"Not enough parameters for popup list"});
    return 0;
  }
  auto** list =
      static_cast<char**>(allocate((count + 1) * sizeof(char*), no_memory, exit_directive));
  auto* copy = static_cast<char*>(allocate(line.size() + 1, no_memory, exit_directive));
  line.copy(copy, line.size());
  const std::size_t longest = split_items(copy, list);

  int position[most_numbers];
  const char* at = nullptr;
  first_numbers(at, position);
  gadget_list* field = CreateGadget();
  field->flags = GF_POPLIST;
  field->x = screen.windx + position[0];
  field->y = screen.windy + position[1];
  field->w = field->m = static_cast<int>(longest) + 2;
  field->h = 1;
  field->list = list;
  copy_text(field->text, list[*list[text_item] ? text_item : poplist_entries]);
  copy_text(field->op, list[name_item]);
  list[poplist_column] = decimal_word(field->x);
  list[poplist_row] = decimal_word(field->y);
  return 0;
}

}  // namespace scrim
