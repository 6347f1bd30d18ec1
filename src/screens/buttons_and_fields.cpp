// screens/buttons_and_fields: the directives of buttons and edit fields.
// A label is built as it is painted: brackets included, the hot key marked by its top bit.

#include "common/program.h"
#include "common/text.h"
#include "screens/directives.h"
#include "screens/model.h"
#include "screens/reader.h"

#include <cstddef>
#include <string_view>

namespace scrim {

static const int button_pitch = 14;  // columns from one automatically placed button to the next
static const int button_margin = 5;  // columns kept free to the right of the first one
static const char date_pattern[] = "MM/DD/YYYY HH mm SS";

struct type_row {
  const char* word;
  int dbtype;
};
static const type_row types[] = {
    {"VARCHAR2", DBT_VARCHAR2},
    {"CHAR", DBT_CHAR},
    {"NUMBER", DBT_NUMBER},
    {"DATE", DBT_DATE},
};

// A label on its way from the line into lbuf.
struct label {
  int width;    // columns it takes, brackets included
  char hotkey;  // 0: none marked
};

// Builds the label of `item` in lbuf: brackets around it, an underscore turned into a mark on the
// character after it. An underscore with nothing after it marks nothing.
static label build_label(std::string_view item) {
  label built = {2, 0};
  char open = '(';
  if (!item.empty() && (item[0] == '(' || item[0] == '<' || item[0] == ' ')) {
    open = item[0];
    item.remove_prefix(1);
  }
  char* to = lbuf;
  if (open != ' ') *to++ = open;
  for (std::size_t i = 0; i < item.size(); i++) {
    char c = item[i];
    if (c == '_') {
      if (++i == item.size()) break;
      built.hotkey = static_cast<char>(lower_case(item[i]));
      c = static_cast<char>(item[i] | 0x80);
    }
    *to++ = c;
    built.width++;
  }
  if (open == ' ') {
    built.width -= 2;
  } else {
    *to++ = open == '<' ? '>' : ')';
  }
  *to = 0;
  return built;
}

int f_button_core(int x, int y, const char* cp, int flag) {
  const label built = build_label(next_item(cp));
  gadget_list* button = CreateGadget();
  button->flags = flag | GF_BUTTON;
  button->x = x;
  button->y = y;
  button->w = built.width;
  button->hotkey = built.hotkey;
  copy_text(button->text, lbuf);

  const std::string_view action = next_item(cp);
  const std::size_t length = word_length(action);
  copy_text(button->op, action.substr(0, length));
  if (length == action.size() && cp && *cp == 'Y') button->dbtype = DBT_VALIDATE;
  return 0;
}

// Buttons without a position stand in the row above the window's lower border, from the right.
static int automatic_button(int flag) {
  per_screen& screen = s_screen[curscreen];
  screen.gadgetc++;
  const int x = screen.windx + screen.windw - button_margin - button_pitch * screen.gadgetc;
  const int y = screen.windy + screen.windh - 2;
  return f_button_core(x, y, first_item(cbuf), flag);
}

static int placed_button(int flag) {
  per_screen& screen = s_screen[curscreen];
  screen.gadgetc++;
  int position[most_numbers];
  const char* at = nullptr;
  first_numbers(at, position);
  return f_button_core(screen.windx + position[0], screen.windy + position[1], at, flag);
}

int f_button() { return automatic_button(0); }
int f_dbutton() { return automatic_button(GF_DEFAULT); }
int f_pbutton() { return placed_button(0); }
int f_dpbutton() { return placed_button(GF_DEFAULT); }

static int type_of(std::string_view word) {
  for (const type_row& row : types)
    if (word == row.word) return row.dbtype;
  return 0;
}

int f_etext_core(int flag) {
  per_screen& screen = s_screen[curscreen];
  screen.gadgetc++;
  int place[most_numbers];
  const char* at = first_item(cbuf);
  const bool has_most = next_item(at).find('/') != std::string_view::npos;
  first_numbers(at, place);

  std::string_view text = next_item(at);
  if (text == "\\p") {
    flag |= GF_PASSWORD;
    text = {};
  }
  gadget_list* field = CreateGadget();
  field->flags = flag | GF_ETEXT;
  field->x = screen.windx + place[0];
  field->y = screen.windy + place[1];
  field->w = place[2];
  field->m = has_most ? place[3] : place[2];
  copy_text(field->text, text);
  copy_text(field->op, next_item(at));
  field->dbtype = type_of(next_item(at));
  if (field->dbtype == DBT_DATE) copy_text(field->pattern, date_pattern);
  if (next_item(at) == "N") field->dbtype |= DBT_REQUIRED;
  return 0;
}

int f_etext() { return f_etext_core(0); }
int f_detext() { return f_etext_core(GF_DEFAULT); }

}  // namespace scrim
