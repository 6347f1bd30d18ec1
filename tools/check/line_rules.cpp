// tools/check/line_rules: each line goes through scrim's own reader, table and handlers. What would
// end the program is noted, and loading goes on with the next line; what the handlers accept is
// judged by the records that they leave.

#include "tools/check/line_rules.h"

#include "common/program.h"
#include "common/text.h"
#include "screens/directives.h"
#include "screens/loader.h"
#include "screens/reader.h"
#include "tools/check/item_rules.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <new>
#include <string>
#include <string_view>

namespace scrim {

static const area whole_screen = {0, 0, layout_columns, layout_rows};  // which windows are made for

static void check_in_window(form& checked, int line, const std::string& what, const area& cells) {
  const area window = window_of(s_screen[curscreen]);
  if (cells.w > 0 && window.w > 0 && !inside(cells, window))
    report(checked, curscreen, line, what + " leaves the window");
}

// What follows a directive's handler.

static void check_window(form& checked, int line) {
  if (inside(window_of(s_screen[curscreen]), whole_screen)) return;
  report(checked, curscreen, line,
         "the window leaves the screen of " + std::to_string(whole_screen.w) + " columns and " +
             std::to_string(whole_screen.h) + " rows");
}

static void check_frame(form& checked, int line) {
  const first_drawing& frame = *s_screen[curscreen].drawings_end;
  const area cells = {frame.x, frame.y, frame.w, frame.h};
  checked.frames.push_back({curscreen, line, "the frame", cells});
  check_in_window(checked, line, "the frame", cells);
}

static void check_attached(form& checked, int line, const save_text& block) {
  area cells = {block.x, block.y, 0, 0};
  for (std::string_view rest = block.text; !rest.empty(); cells.h++) {
    const std::size_t length = rest.find('\n');
    cells.w = std::max(cells.w, static_cast<int>(length));
    rest.remove_prefix(length + 1);
  }
  check_in_window(checked, line, "the attached text", cells);
}

static void check_atext(form& checked, int line) { check_attached(checked, line, *atext); }
static void check_btext(form& checked, int line) { check_attached(checked, line, *btext); }

static void check_position(form& checked, int line) {
  const gadget_list& swin = *s_screen[curscreen].last_swin;
  if (swin.swiny >= 1 && swin.swiny <= swin.h - 2) return;
  report(checked, curscreen, line,
         "the cursor's row " + std::to_string(swin.swiny) + " is not in the scroll window");
}

// A directive that is not here needs its numbers alone.
const std::vector<rule> rules = {
    {"fulls", sets_window, nullptr, nullptr},               //
    {"pop:", sets_window, nullptr, check_window},           //
    {"name:", 0, check_name, nullptr},                      //
    {"title:", 0, check_title, nullptr},                    //
    {"bdefault", in_window, check_default, nullptr},        //
    {"text:", in_window | is_block, nullptr, nullptr},      //
    {"atext", in_window | is_block, nullptr, check_atext},  //
    {"btext", in_window | is_block, nullptr, check_btext},  //
    {"box:", in_window, nullptr, check_frame},              //
    {"button:", in_window, check_button, nullptr},          //
    {"dbutton:", in_window, check_button, nullptr},         //
    {"pbutton:", in_window, check_button, nullptr},         //
    {"dpbutton:", in_window, check_button, nullptr},        //
    {"etext", in_window, check_field, nullptr},             //
    {"detext", in_window, check_field, nullptr},            //
    {"checkbox", in_window, check_box, nullptr},            //
    {"dcheckbox", in_window, check_box, nullptr},           //
    {"xcheckbox", in_window, check_box, nullptr},           //
    {"dxcheckbox", in_window, check_box, nullptr},          //
    {"poplist", in_window, check_pop_list, nullptr},        //
    {"swin", in_window, check_scroll_window, nullptr},      //
    {"dswin", in_window, check_scroll_window, nullptr},     //
    {"swhigh", or_cursor, nullptr, nullptr},                //
    {"swpos", 0, nullptr, check_position},                  //
};
static const rule no_rule = {};

static const rule& rule_of(int row) {
  for (const rule& candidate : rules)
    if (row != -1 && candidate.keyword == file_funcs[row]) return candidate;
  return no_rule;
}

// What precedes the handler.

static bool is_size(std::string_view name) { return name == "W" || name == "H" || name == "M"; }

// Sizes are 1 at least; a position may be 0, and negative ones leave the window.
static bool check_sizes(form& checked, std::string_view names, const char* separators,
                        const std::vector<int>& numbers) {
  bool good = true;
  for (const int number : numbers) {
    const std::string name(names.substr(0, names.find_first_of(separators)));
    names.remove_prefix(std::min(name.size() + 1, names.size()));
    if (!is_size(name) || number > 0) continue;
    report(checked, curscreen, line_number,
           name + " is " + std::to_string(number) + ", and must be 1 at least");
    good = false;
  }
  return good;
}

// Whether `item`, with which `text` begins, is as many numbers as `separators` separate, and those
// alone. Writes them to `numbers`.
static bool read_all(const char* text, std::string_view item, const std::string& separators,
                     std::vector<int>& numbers) {
  const auto count = static_cast<std::ptrdiff_t>(numbers.size());
  auto separates = [](char c) { return c == ',' || c == '/'; };
  return read_numbers(text, separators.c_str(), numbers.data()) == count &&
         std::count_if(item.begin(), item.end(), separates) == count - 1 &&
         item.find_first_not_of("+-0123456789 ,/") == std::string_view::npos;
}

// Whether the line has the numbers that the table names for it. Reports those that it has not. What
// follows a "/" may be left out with it.
static bool check_numbers(form& checked, int row, int traits) {
  std::string_view names = row == -1 ? "" : file_numbers[row];
  const char* at = first_item(cbuf);
  const char* text = at ? at : "";
  const std::string_view item = next_item(at);
  if (names.empty() || ((traits & or_cursor) && item.starts_with("cursor"))) return true;

  if (item.find('/') == std::string_view::npos) names = names.substr(0, names.find('/'));
  char separators[most_numbers];
  std::vector<int> numbers(static_cast<std::size_t>(number_separators(names, separators)));
  if (read_all(text, item, separators, numbers))
    return check_sizes(checked, names, separators, numbers);
  report(checked, curscreen, line_number, std::string(names) + " missing, or not numbers");
  return false;
}

static void check_order(form& checked, int traits) {
  const bool has_window = (s_screen[curscreen].screentype & (ST_FULLS | ST_POP)) != 0;
  if ((traits & in_window) && !has_window)
    report(checked, curscreen, line_number, "stands before the window directive (fulls or pop)");
  if ((traits & sets_window) && has_window)
    report(checked, curscreen, line_number, "a second window directive");
}

// Gadgets by themselves, in the window that they are declared in.

static void check_gadget(form& checked, const declaration& it) {
  const gadget_list& gadget = *it.gadget;
  const bool is_button = kind_of(gadget) == GF_BUTTON;
  const std::string_view label = gadget.text;
  if (it.kind->without_op && !*gadget.op) report(checked, it.screen, it.line, it.kind->without_op);
  if (!is_button && *gadget.op && !is_shell_name(gadget.op))
    report(checked, it.screen, it.line,
           "variable '" + std::string(gadget.op) + "' is no name for a shell");
  if (is_button && (label.empty() || label == "()" || label == "<>"))
    report(checked, it.screen, it.line, "button without a label");
  if (it.placed) check_in_window(checked, it.line, it.kind->name, it.cells);
}

// Notes and checks the gadgets behind `last`. Those of a block are a line each.
static void check_gadgets(form& checked, const gadget_list* last, int traits, int line,
                          bool placed) {
  const gadget_list* gadget = last ? last->next : s_screen[curscreen].gadget_lp;
  for (; gadget; gadget = gadget->next) {
    if (traits & is_block) line++;
    checked.gadgets.push_back(declare(*gadget, line, placed));
    check_gadget(checked, checked.gadgets.back());
  }
}

// Loading, step by step.

// Reports why a step was refused, if it was; returns whether it was.
static bool take_refusal(form& checked) {
  if (refused.status == 0) return false;
  report(checked, curscreen, line_number, refused.message);
  refused.status = 0;
  return true;
}

// Of a block whose directive has failed the rest is passed over: it holds no directives.
static void finish_block(form& checked, int line, bool done) {
  while (!done && (next_block_line() || take_refusal(checked))) continue;
  if (!std::string_view(cbuf).starts_with("endtext:"))
    report(checked, curscreen, line, "endtext: is missing");
}

static void check_line(form& checked) {
  const int row = directive_row(cbuf), line = line_number;
  const rule& wanted = rule_of(row);
  const gadget_list* last = s_screen[curscreen].blp;
  check_order(checked, wanted.traits);
  const bool numbered = check_numbers(checked, row, wanted.traits);
  run_directive();
  const bool done = !take_refusal(checked);
  if (wanted.traits & is_block) finish_block(checked, line, done);
  if (wanted.after && done && numbered) wanted.after(checked, line);
  if (wanted.items && done) wanted.items(checked, line);
  check_gadgets(checked, last, wanted.traits, line, numbered);
  for (int written = line; written <= line_number; written++) check_references(checked, written);
}

// What the file holds, and an empty line: memory without a byte cannot be opened.
static std::string whole_file() {
  std::string text, piece(65536, 0);
  while (const std::size_t n = fread(piece.data(), 1, piece.size(), sfp)) text.append(piece, 0, n);
  return text + '\n';
}

// The lines of a text that ends with a newline.
static std::vector<std::string> lines_of(std::string_view rest) {
  std::vector<std::string> lines;
  for (; !rest.empty(); rest.remove_prefix(lines.back().size() + 1))
    lines.emplace_back(rest.substr(0, rest.find('\n')));
  return lines;
}

// Lets the handlers read the file from memory: their rules look at its lines as they are written.
static void read_from_memory(form& checked, std::string& text) {
  text = whole_file();
  checked.lines = lines_of(text);
  if (sfp != stdin) fclose(sfp);
  sfp = fmemopen(text.data(), text.size(), "r");
  if (!sfp) throw std::bad_alloc();
}

bool check_lines(form& checked) {
  if (!open_screen()) {
    complain({"scrim-check: Can't find screen file ", s_screen[curscreen].path});
    return false;
  }
  checked.screens.push_back({});
  std::string text;
  read_from_memory(checked, text);
  for (;;) {
    if (next_directive()) {
      check_line(checked);
    } else if (!take_refusal(checked)) {
      break;
    }
  }
  close_screen();
  return true;
}

}  // namespace scrim
