// driver/check: scrim-check, which looks for faults in screen files.
// Each line goes through the loader's own reader, table and handlers. What would end the program is
// noted, and loading goes on behind it; what they let pass is judged by the records they leave.

#include "common/program.h"
#include "common/text.h"
#include "screens/directives.h"
#include "screens/loader.h"
#include "screens/model.h"
#include "screens/reader.h"
#include "term/drawing.h"
#include "term/endings.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <string_view>

#include <unistd.h>

namespace scrim {

static const int wrong_call = 2;  // exit status: the call, or a file that cannot be opened

// A list that grows; its records are never freed.
template <typename T>
struct growing {
  T* all;
  int count;
};

[[noreturn]] static void out_of_memory() {
  fputs("scrim-check: out of memory\n", stderr);
  exit(wrong_call);
}

// The number of records that fit is the next power of two.
template <typename T>
static T& add_to(growing<T>& list) {
  if ((list.count & (list.count - 1)) == 0) {
    const auto room = static_cast<std::size_t>(std::max(2 * list.count, 1));
    void* memory = realloc(list.all, room * sizeof(T));
    if (!memory) out_of_memory();
    list.all = static_cast<T*>(memory);
  }
  return list.all[list.count++];
}

// What was found, over all lists of files.

struct problem {
  const char* path;
  int line;
  const char* text;
};
static growing<problem> problems;

__attribute__((format(printf, 3, 4))) static void report(int screen, int line, const char* format,
                                                         ...) {
  static char text[2 * scratch_size];
  std::va_list arguments;
  va_start(arguments, format);
  vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  const char* copy = strdup(text);
  if (!copy) out_of_memory();
  add_to(problems) = {s_screen[screen].path, line, copy};
}

static int compare(const problem& a, const problem& b) {
  if (const int order = std::strcmp(a.path, b.path)) return order;
  if (a.line != b.line) return a.line < b.line ? -1 : 1;
  return std::strcmp(a.text, b.text);
}

static void print_problem(const problem& found) {
  char line[16];
  snprintf(line, sizeof line, ":%d: ", found.line);
  print(stdout, {found.path, line, found.text});
}

// A file that several lists name has its own problems in each of them: each is printed once.
static void print_problems() {
  problem* const end = problems.all + problems.count;
  std::sort(problems.all, end, [](const auto& a, const auto& b) { return compare(a, b) < 0; });
  for (const problem* at = problems.all; at != end; at++)
    if (at == problems.all || compare(at[-1], *at) != 0) print_problem(*at);
}

// What is known of a list's gadgets and screens besides their records.

// Cells that something takes on the terminal.
struct area {
  int x, y, w, h;
};

struct declaration {
  const gadget_list* gadget;
  int screen;
  int line;
  bool placed;  // its numbers are good
  area cells;   // brackets included
};
static growing<declaration> declarations;  // of one list, in the order of its files

struct screen_lines {
  int name;            // line of the name directive; 0: none
  int default_action;  // line of the bdefault directive; 0: none
  bool reached;        // an action leads there, or it is the first
  bool pops_up;        // an action pops it up
};
static screen_lines* lines_of;  // a record for each screen

struct kind_row {
  int kind;
  int brackets;  // columns that stand left and right of its width
  const char* name;
  const char* without_op;  // complaint about an empty variable or action; null: may be empty
};
static const kind_row kinds[] = {
    {GF_BUTTON, 0, "button", "button without an action"},
    {GF_ETEXT, 1, "edit field", "edit field without a variable"},
    {GF_CHECKBOX, 1, "checkbox", "checkbox without a variable"},
    {GF_XCHECKBOX, 1, "checkbox", "checkbox without a variable"},
    {GF_POPLIST, 1, "pop list", "pop list without a variable"},
    {GF_SWIN, 0, "scroll window", nullptr},
    {GF_TEXT, 0, "text", nullptr},
};

// The row of a gadget; null for one whose directive failed.
static const kind_row* row_of(const gadget_list& gadget) {
  for (const kind_row& row : kinds)
    if (row.kind == kind_of(gadget)) return &row;
  return nullptr;
}

static const area whole_screen = {0, 0, layout_columns, layout_rows};  // which windows are made for

static area window_of(const per_screen& screen) {
  return {screen.windx, screen.windy, screen.windw, screen.windh};
}

static bool inside(const area& inner, const area& outer) {
  return inner.x >= outer.x && inner.y >= outer.y && inner.x + inner.w <= outer.x + outer.w &&
         inner.y + inner.h <= outer.y + outer.h;
}

static bool is_blank(char c) { return c == ' ' || c == static_cast<char>(' ' | 0x80); }

// A text line's leading blanks are not painted.
static area text_cells(const gadget_list& text) {
  const int n = static_cast<int>(std::strlen(text.text));
  const int indent = static_cast<int>(std::strspn(text.text, " "));
  return {text.x + indent, text.y, n - indent, 1};
}

// Brackets included. No cells for a gadget whose directive failed.
static area cells_of(const gadget_list& gadget) {
  const kind_row* row = row_of(gadget);
  if (!row) return {gadget.x, gadget.y, 0, 0};
  if (row->kind == GF_TEXT) return text_cells(gadget);
  return {gadget.x - row->brackets, gadget.y, gadget.w + 2 * row->brackets,
          row->kind == GF_SWIN ? gadget.h : 1};
}

// While a line is loaded: what follows a directive's handler.

static void check_window(int line) {
  const area window = window_of(s_screen[curscreen]);
  if (inside(window, whole_screen)) return;
  report(curscreen, line, "the window leaves the screen of %d columns and %d rows", whole_screen.w,
         whole_screen.h);
}

static void check_name(int line) {
  lines_of[curscreen].name = line;
  if (!*s_screen[curscreen].screenname) report(curscreen, line, "the name is missing");
}

static void check_default(int line) {
  lines_of[curscreen].default_action = line;
  if (!*s_screen[curscreen].default_string) report(curscreen, line, "the action is missing");
}

static void check_in_window(int line, const char* what, const area& cells) {
  const area window = window_of(s_screen[curscreen]);
  if (cells.w > 0 && window.w > 0 && !inside(cells, window))
    report(curscreen, line, "%s leaves the window", what);
}

static void check_frame(int line) {
  const first_drawing& frame = *s_screen[curscreen].drawings_end;
  check_in_window(line, "the frame", {frame.x, frame.y, frame.w, frame.h});
}

static void check_attached(int line, const save_text& block) {
  area cells = {block.x, block.y, 0, 0};
  for (const char* at = block.text; *at; cells.h++) {
    const std::size_t n = std::strcspn(at, "\n");
    cells.w = std::max(cells.w, static_cast<int>(n));
    at += n + 1;
  }
  check_in_window(line, "the attached text", cells);
}

static void check_atext(int line) { check_attached(line, *atext); }
static void check_btext(int line) { check_attached(line, *btext); }

// The items of an edit field that its record does not keep: an unknown type or option adds nothing.
static void check_field(int line) {
  const char* at = first_item(cbuf);
  for (int passed = 0; passed < 3; passed++) next_item(at);
  const std::string_view type = next_item(at), option = next_item(at);
  const bool known = (s_screen[curscreen].blp->dbtype & DBT_TYPEMASK) != 0;
  if (!type.empty() && !known)
    report(curscreen, line, "unknown type '%.*s'", static_cast<int>(type.size()), type.data());
  if (!option.empty() && option != "N")
    report(curscreen, line, "'%.*s' where only N means something", static_cast<int>(option.size()),
           option.data());
}

static void check_position(int line) {
  const gadget_list& swin = *s_screen[curscreen].last_swin;
  if (swin.swiny < 1 || swin.swiny > swin.h - 2)
    report(curscreen, line, "the cursor's row %d is not in the scroll window", swin.swiny);
}

// What a directive's line needs. One that is not here needs nothing.
enum {
  sets_window = 1,
  in_window = 2,  // means something only in a window
  is_block = 4,   // lines up to endtext: follow
  or_cursor = 8   // the word "cursor" may stand for the number
};
struct rule {
  const char* keyword;
  int traits;
  const char* numbers;      // their names, as they are separated; null: none
  void (*after)(int line);  // what its handler has left; or null
};
static const rule rules[] = {
    {"fulls", sets_window, nullptr, nullptr},
    {"pop:", sets_window, "W,H", check_window},
    {"name:", 0, nullptr, check_name},
    {"bdefault", in_window, nullptr, check_default},
    {"text:", in_window | is_block, nullptr, nullptr},
    {"atext", in_window | is_block, "X,Y", check_atext},
    {"btext", in_window | is_block, "X,Y", check_btext},
    {"box:", in_window, "X,Y,W,H", check_frame},
    {"button:", in_window, nullptr, nullptr},
    {"dbutton:", in_window, nullptr, nullptr},
    {"pbutton:", in_window, "X,Y", nullptr},
    {"dpbutton:", in_window, "X,Y", nullptr},
    {"etext", in_window, "X,Y,W/M", check_field},
    {"detext", in_window, "X,Y,W/M", check_field},
    {"checkbox", in_window, "X,Y", nullptr},
    {"dcheckbox", in_window, "X,Y", nullptr},
    {"xcheckbox", in_window, "X,Y", nullptr},
    {"dxcheckbox", in_window, "X,Y", nullptr},
    {"poplist", in_window, "X,Y", nullptr},
    {"swin", in_window, "X,Y,W,H", nullptr},
    {"dswin", in_window, "X,Y,W,H", nullptr},
    {"swhigh", or_cursor, "LINE", nullptr},
    {"swpos", 0, "LINE,OFFSET", check_position},
};
static const rule no_rule = {"", 0, nullptr, nullptr};

static const rule& rule_of_line() {
  const int row = directive_row(cbuf);
  for (const rule& candidate : rules)
    if (row != -1 && std::strcmp(candidate.keyword, file_funcs[row]) == 0) return candidate;
  return no_rule;
}

static bool is_separator(char c) { return c == ',' || c == '/'; }

// Numbers that name sizes; a position may be 0, and negative ones leave the window.
static bool check_sizes(std::string_view names, const int* numbers) {
  bool good = true;
  for (const char name : names) {
    if (is_separator(name)) numbers++;
    if (std::strchr("WHM", name) == nullptr || *numbers > 0) continue;
    report(curscreen, line_number, "%c is %d, and must be 1 at least", name, *numbers);
    good = false;
  }
  return good;
}

// Whether the line has the numbers that it needs. Reports those that it has not.
static bool check_numbers(const rule& wanted) {
  const char* at = first_item(cbuf);
  const char* text = at ? at : "";
  const std::string_view item = next_item(at);
  if (!wanted.numbers || ((wanted.traits & or_cursor) && item.starts_with("cursor"))) return true;

  std::string_view names = wanted.numbers;
  if (item.find('/') == std::string_view::npos) names = names.substr(0, names.find('/'));
  char separators[most_numbers] = "";
  std::copy_if(names.begin(), names.end(), separators, is_separator);
  int numbers[most_numbers];
  const auto count = static_cast<std::ptrdiff_t>(std::strlen(separators));
  if (read_numbers(text, separators, numbers) == count + 1 &&
      std::count_if(item.begin(), item.end(), is_separator) == count &&
      item.find_first_not_of("+-0123456789 ,/") == std::string_view::npos)
    return check_sizes(names, numbers);
  report(curscreen, line_number, "%.*s missing, or not numbers", static_cast<int>(names.size()),
         names.data());
  return false;
}

static void check_order(const rule& wanted) {
  const bool has_window = (s_screen[curscreen].screentype & (ST_FULLS | ST_POP)) != 0;
  if ((wanted.traits & in_window) && !has_window)
    report(curscreen, line_number, "stands before the window directive (fulls or pop)");
  if ((wanted.traits & sets_window) && has_window)
    report(curscreen, line_number, "a second window directive");
}

// Loading, step by step.

// Reports why a step was refused, if it was; returns whether it was.
static bool take_refusal() {
  if (refused.status == 0) return false;
  report(curscreen, line_number, "%s", refused.message);
  refused.status = 0;
  return true;
}

// What is left of a block whose directive has failed is no directive.
static void finish_block(bool done, int line) {
  while (!done && (next_block_line() || take_refusal())) continue;
  if (!std::string_view(cbuf).starts_with("endtext:"))
    report(curscreen, line, "endtext: is missing");
}

static bool is_shell_name(std::string_view name) {
  static const char characters[] =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_0123456789";
  return name.find_first_not_of(characters) == std::string_view::npos &&
         !(name[0] >= '0' && name[0] <= '9');
}

// A gadget by itself, in the window that it was declared in.
static void check_gadget(const declaration& it) {
  const gadget_list& gadget = *it.gadget;
  const kind_row* row = row_of(gadget);
  if (!row) return;
  if (row->without_op && !*gadget.op) report(it.screen, it.line, "%s", row->without_op);
  if (row->kind != GF_BUTTON && *gadget.op && !is_shell_name(gadget.op))
    report(it.screen, it.line, "variable '%s' is no name for a shell", gadget.op);
  const std::string_view label = gadget.text;
  if (row->kind == GF_BUTTON && (label.empty() || label == "()" || label == "<>"))
    report(it.screen, it.line, "button without a label");
  if (it.placed) check_in_window(it.line, row->name, it.cells);
}

// Notes the gadgets behind `last`. Those of a block are a line each.
static void note_gadgets(const gadget_list* last, const rule& wanted, int line, bool placed) {
  const per_screen& screen = s_screen[curscreen];
  const gadget_list* gadget = last ? last->next : screen.gadget_lp;
  for (; gadget; gadget = gadget->next) {
    if (wanted.traits & is_block) line++;
    add_to(declarations) = {gadget, curscreen, line, placed, cells_of(*gadget)};
    check_gadget(declarations.all[declarations.count - 1]);
  }
}

static void load_line() {
  const rule& wanted = rule_of_line();
  const int line = line_number;
  const gadget_list* last = s_screen[curscreen].blp;
  check_order(wanted);
  const bool numbered = check_numbers(wanted);
  run_directive();
  const bool done = !take_refusal();
  if (wanted.traits & is_block) finish_block(done, line);
  if (wanted.after && done && numbered) wanted.after(line);
  note_gadgets(last, wanted, line, numbered);
}

static bool load_screen() {
  if (!open_screen()) {
    complain({"scrim-check: Can't find screen file ", s_screen[curscreen].path});
    return false;
  }
  for (;;) {
    if (next_directive()) {
      load_line();
    } else if (!take_refusal()) {
      break;
    }
  }
  close_screen();
  return true;
}

// With a whole list loaded: each gadget among those before it on its screen.

// The blanks of a text are free for what is painted after it.
static bool free_in_text(const gadget_list& text, int from, int to) {
  return std::all_of(text.text + from, text.text + to, is_blank);
}

// A scroll window is drawn once. Where its screen comes back, a text in its place stands in for it.
static bool stands_in(const declaration& text, const declaration& swin) {
  return kind_of(*text.gadget) == GF_TEXT && kind_of(*swin.gadget) == GF_SWIN &&
         inside(text.cells, swin.cells);
}

static bool overlap(const declaration& earlier, const declaration& later) {
  const area &a = earlier.cells, &b = later.cells;
  const int from = std::max(a.x, b.x), to = std::min(a.x + a.w, b.x + b.w);
  if (from >= to || a.y >= b.y + b.h || b.y >= a.y + a.h) return false;
  if (stands_in(earlier, later) || stands_in(later, earlier)) return false;
  const gadget_list& under = *earlier.gadget;
  return kind_of(under) != GF_TEXT || !free_in_text(under, from - under.x, to - under.x);
}

// Says what stands in a gadget's place, and who else has its hot key: the first of each.
static void check_pairs(const declaration* first, const declaration& it) {
  const gadget_list& gadget = *it.gadget;
  bool covers = false, shares_key = false;
  for (const declaration* other = first; other != &it; other++) {
    if (!covers && it.placed && other->placed && overlap(*other, it)) {
      covers = true;
      report(it.screen, it.line, "%s overlaps the %s of line %d", row_of(gadget)->name,
             row_of(*other->gadget)->name, other->line);
    }
    if (!shares_key && gadget.hotkey && gadget.hotkey == other->gadget->hotkey) {
      shares_key = true;
      report(it.screen, it.line, "hot key '%c' is that of line %d too", gadget.hotkey, other->line);
    }
  }
}

static void check_gadgets() {
  const declaration* first = declarations.all;
  for (int i = 0; i < declarations.count; i++) {
    const declaration& it = declarations.all[i];
    if (it.screen != first->screen) first = &it;
    if (!row_of(*it.gadget)) continue;
    check_pairs(first, it);
  }
}

static bool has_variable(const gadget_list& gadget) {
  return *gadget.op && (kind_of(gadget) & ~(GF_BUTTON | GF_TEXT)) != 0;
}

// Sorts the gadgets by variable, those of one variable in the order of the files.
static bool in_order_of_variables(const declaration* a, const declaration* b) {
  const int order = std::strcmp(a->gadget->op, b->gadget->op);
  return order != 0 ? order < 0 : a < b;
}

static void check_variables() {
  static growing<const declaration*> named;
  named.count = 0;
  for (int i = 0; i < declarations.count; i++)
    if (has_variable(*declarations.all[i].gadget)) add_to(named) = &declarations.all[i];
  std::sort(named.all, named.all + named.count, in_order_of_variables);
  for (int i = 1; i < named.count; i++) {
    const declaration &one = *named.all[i - 1], &other = *named.all[i];
    if (std::strcmp(one.gadget->op, other.gadget->op) != 0) continue;
    report(other.screen, other.line, "variable %s is that of %s:%d too", other.gadget->op,
           s_screen[one.screen].path, one.line);
  }
}

// Screens, and the actions that lead to them.

static int screen_named(const char* name) {
  int i = 0;
  while (i < screens && std::strcmp(s_screen[i].screenname, name) != 0) i++;
  return i;
}

// "^" alone returns.
static bool leads_to_screen(const char* action) {
  return *action == '>' || *action == '<' || (*action == '^' && action[1]);
}

static void check_action(int screen, int line, const char* action) {
  if (leads_to_screen(action) && screen_named(action + 1) == screens)
    report(screen, line, "no screen of the list has the name '%s'", action + 1);
}

static void check_names() {
  for (int i = 0; i < screens; i++) {
    check_action(i, lines_of[i].default_action, s_screen[i].default_string);
    const int same = screen_named(s_screen[i].screenname);
    if (same == i || !*s_screen[i].screenname) continue;
    report(i, lines_of[i].name, "screen name %s is that of %s:%d too", s_screen[i].screenname,
           s_screen[same].path, lines_of[same].name);
  }
}

static void check_actions() {
  for (int i = 0; i < declarations.count; i++) {
    const declaration& it = declarations.all[i];
    if (kind_of(*it.gadget) == GF_BUTTON) check_action(it.screen, it.line, it.gadget->op);
  }
}

static void follow(growing<int>& reached, const char* action) {
  if (!leads_to_screen(action)) return;
  const int target = screen_named(action + 1);
  if (target == screens) return;
  if (*action == '^') lines_of[target].pops_up = true;
  if (lines_of[target].reached) return;
  lines_of[target].reached = true;
  add_to(reached) = target;
}

static void mark_reached() {
  static growing<int> reached;
  reached.count = 0;
  add_to(reached) = 0;
  lines_of[0].reached = true;
  for (int i = 0; i < reached.count; i++) {
    const per_screen& screen = s_screen[reached.all[i]];
    follow(reached, screen.default_string);
    for (const gadget_list* gadget = screen.gadget_lp; gadget; gadget = gadget->next)
      if (kind_of(*gadget) == GF_BUTTON) follow(reached, gadget->op);
  }
}

static bool returns(const per_screen& screen) {
  auto is_return = [](const char* action) { return std::strcmp(action, "^") == 0; };
  for (const gadget_list* gadget = screen.gadget_lp; gadget; gadget = gadget->next)
    if (kind_of(*gadget) == GF_BUTTON && is_return(gadget->op)) return true;
  return is_return(screen.default_string);
}

// A field that fails its check takes its screen to the top of the stack: "^" there has nothing to
// return to, unless the screen has been popped up again.
static void check_validated(const declaration& it) {
  const screen_lines& screen = lines_of[it.screen];
  if ((it.gadget->dbtype & DBT_REQUIRED) && !screen.reached)
    report(it.screen, it.line, "required field on a screen that no action leads to");
  if (screen.pops_up && returns(s_screen[it.screen]))
    report(it.screen, it.line, "a field that is checked on a pop-up that \"^\" leaves");
}

static void check_fields_of_screens() {
  for (int i = 0; i < declarations.count; i++) {
    const declaration& it = declarations.all[i];
    if ((it.gadget->flags & GF_ETEXT) && (it.gadget->dbtype & (DBT_REQUIRED | DBT_DATE)))
      check_validated(it);
  }
}

// Each list is a run of the program: what one leaves is not there for the next.
static void start_anew(char* list) {
  make_table(list);
  lines_of =
      static_cast<screen_lines*>(calloc(static_cast<std::size_t>(screens), sizeof *lines_of));
  if (!lines_of) out_of_memory();
  declarations.count = 0;
  atext = btext = nullptr;
  swdefer = 0;
}

// Returns whether all files of the list could be opened; if not, only its single lines are checked.
static bool check_list(char* list) {
  start_anew(list);
  for (curscreen = 0; curscreen < screens; curscreen++)
    if (!load_screen()) return false;
  mark_reached();
  check_gadgets();
  check_variables();
  check_names();
  check_actions();
  check_fields_of_screens();
  return true;
}

[[noreturn]] static void usage() {
  fputs("Usage: scrim-check [-q] file[,file...] ...\n", stderr);
  exit(wrong_call);
}

// Every list names a file.
static bool is_good_call(char** lists) {
  if (!*lists) return false;
  for (; *lists; lists++)
    if (!(*lists)[std::strspn(*lists, ",")]) return false;
  return true;
}

static int run_checks(char** lists, bool quiet) {
  bool opened = true;
  for (; *lists; lists++) opened = check_list(*lists) && opened;
  if (!quiet) print_problems();
  if (!opened) return wrong_call;
  return problems.count > 0 ? 1 : 0;
}

}  // namespace scrim

int main(int argc, char** argv) {
  bool quiet = false;
  for (int option = 0; (option = getopt(argc, argv, "q")) != -1;) {
    if (option != 'q') scrim::usage();
    quiet = true;
  }
  if (!scrim::is_good_call(argv + optind)) scrim::usage();
  return scrim::run_checks(argv + optind, quiet);
}
