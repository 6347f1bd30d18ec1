// runtime/pick_list: a column of words, of which the user picks one.
// A list that fits is drawn once; of a longer one a part is shown that follows the selection.

#include "runtime/pick_list.h"

#include "common/program.h"
#include "common/text.h"
#include "screens/model.h"
#include "term/capabilities.h"
#include "term/drawing.h"
#include "term/key_codes.h"
#include "term/keys.h"
#include "term/tty.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace scrim {

static const int widest_entry = 39;  // columns of an entry that are shown

int next_by_letter(char** entries, int from, int key) {
  int entry = from;
  do {
    entry = entries[entry + 1] ? entry + 1 : 0;
  } while (entry != from && *entries[entry] != upper_case(key));
  return entry;
}

struct pick_list {
  bool framed;
  char** entries;
  int count;
  int x, y;      // of the first shown entry
  int width;     // columns of every entry
  int rows;      // entries shown at a time
  int first;     // the first one shown
  int selected;  // the highlighted one
  int result;    // once the user has left
};

static void measure(pick_list& list) {
  for (; list.entries[list.count]; list.count++) {
    const std::size_t length = strnlen(list.entries[list.count], widest_entry);
    list.width = std::max(list.width, static_cast<int>(length));
  }
}

// Moves the list up until it ends inside the window, or on the terminal where there is no window;
// shows a part of it where even that is too little room. The row below the entries is the frame's.
static void fit(pick_list& list) {
  int top = 0, bound = T_LINES;  // first row, and the row behind the last one
  if (screens > 0 && s_screen[curscreen].windh > 0) {
    top = s_screen[curscreen].windy;
    bound = top + s_screen[curscreen].windh;
  }
  if (list.y + list.count + 1 > bound) list.y = bound - (list.count + 1);
  list.y = std::max(list.y, std::max(top, 0) + (list.framed ? 1 : 0));
  list.rows = std::clamp(bound - 1 - list.y, 1, list.count);
}

static void draw_entry(const pick_list& list, int entry, int att) {
  stand(list.x, list.y + entry - list.first, list.entries[entry], att, list.width);
}

static void draw_entries(const pick_list& list) {
  for (int row = 0; row < list.rows; row++) draw_entry(list, list.first + row, 0);
}

static void draw_mark(const pick_list& list, int row, char mark) {
  char text[2] = {mark ? mark : cxxxgraph[line_vertical], 0};
  sposition(list.x + list.width, list.y + row);
  if (!mark) M_putp(graph_on);
  display(text);
  if (!mark) M_putp(graph_off);
}

// On the frame's right edge: "^" where there are entries above those shown, "v" where there are
// some below. Where only one entry is shown, "v" stands there if both hold.
static void draw_marks(const pick_list& list) {
  if (!list.framed || list.rows == list.count) return;
  const char above = list.first > 0 ? '^' : 0;
  const char below = list.first + list.rows < list.count ? 'v' : 0;
  if (list.rows > 1) draw_mark(list, 0, above);
  draw_mark(list, list.rows - 1, list.rows == 1 && !below ? above : below);
}

// Shows the part that holds the selection. Returns whether that is another part than before.
static bool follow_selection(pick_list& list) {
  const int before = list.first;
  list.first = std::clamp(list.first, list.selected - list.rows + 1, list.selected);
  return list.first != before;
}

static void select(pick_list& list, int entry) {
  draw_entry(list, list.selected, 0);
  list.selected = entry;
  if (!follow_selection(list)) return;
  draw_entries(list);
  draw_marks(list);
}

// The key actions. Each returns whether the user has left the list.
static bool move_up(pick_list& list, int) {
  select(list, std::max(list.selected - 1, 0));
  return false;
}

static bool move_down(pick_list& list, int) {
  select(list, (list.selected + 1) % list.count);
  return false;
}

static bool search(pick_list& list, int key) {
  if (is_letter(key)) select(list, next_by_letter(list.entries, list.selected, key));
  return false;
}

static bool take(pick_list& list, int) {
  list.result = list.selected;
  return true;
}

static bool leave_by_tab(pick_list& list, int) {
  list.result = list_left_by_tab;
  return true;
}

static bool cancel(pick_list& list, int) {
  list.result = list_cancelled;
  return true;
}

static bool take_clicked(pick_list& list, int) {
  const int row = mouse_up[mouse_row] - list.y;
  if (row < 0 || row >= list.rows) return false;
  list.result = list.first + row;
  return true;
}

struct list_key {
  int key;
  bool (*action)(pick_list&, int key);
};
static const list_key keys[] = {
    {XKEY_UP, move_up},       //
    {key_ctrl_u, move_up},    //
    {XKEY_DOWN, move_down},   //
    {key_ctrl_d, move_down},  //
    {' ', move_down},         //
    {key_line_feed, take},    //
    {key_return, take},       //
    {key_tab, leave_by_tab},  //
    {key_escape, cancel},     //
    {key_ctrl_x, cancel},     //
    {XKEY_MOUSE, take_clicked},
};

static bool act(pick_list& list, int key) {
  for (const list_key& row : keys)
    if (row.key == key) return row.action(list, key);
  return search(list, key);
}

int do_list(int f, int csel) {
  pick_list list = {};
  list.framed = f != 0;
  list.entries = largv + 2;
  read_number(largv[0], list.x);
  read_number(largv[1], list.y);
  list.x += f;
  list.y += f;
  measure(list);
  fit(list);
  list.selected = std::clamp(csel, 0, list.count - 1);
  follow_selection(list);
  draw_entries(list);
  if (f) do_box_c(list.x - 1, list.y - 1, list.width + 2, list.rows + 2, 0);
  draw_marks(list);
  do {
    draw_entry(list, list.selected, ATT_STANDOUT);
  } while (!act(list, get_key()));
  return list.result;
}

}  // namespace scrim
