// tools/check/item_rules: what the items of a line say. Items are read as the handlers read them,
// but for their length; where a backslash matters, the line is looked at as it is written.

#include "tools/check/item_rules.h"

#include "common/text.h"
#include "screens/directives.h"
#include "screens/reader.h"
#include "values/values.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <string>
#include <string_view>

namespace scrim {

static const std::size_t longest_op = sizeof(gadget_list::op) - 1;  // a variable or an action
static const int checked_date = 19;                                 // MM/DD/YYYY HH MM SS

// Item n of a line, counted from 1 behind the keyword; empty when there is none.
static std::string item_of(const char* line, int n) {
  const char* at = first_item(line);
  for (; n > 1; n--) next_item(at);
  return std::string(next_item(at));
}

static std::string quoted(std::string_view text) {
  return std::string("'").append(text).append("'");
}

static void check_length(form& checked, int line, const std::string& what, std::string_view text,
                         std::size_t most) {
  if (text.size() <= most) return;
  report(checked, curscreen, line,
         what + " " + quoted(text) + " has " + std::to_string(text.size()) +
             " characters, of which " + std::to_string(most) + " are kept");
}

bool is_shell_name(std::string_view name) {
  static const std::string_view digits = "0123456789";
  auto is_good = [](char c) { return is_letter(c) || c == '_' || digits.find(c) != digits.npos; };
  return !name.empty() && std::all_of(name.begin(), name.end(), is_good) &&
         digits.find(name[0]) == digits.npos;
}

// What a shell, or a script that uses scrim, has its own use for.
bool has_other_use(std::string_view name) {
  static const std::string_view names[] = {"RETN", "SCRIM", "PATH", "IFS",   "UID",
                                           "EUID", "PPID",  "TERM", "LINES", "COLUMNS"};
  return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

static void check_variable(form& checked, int line, const std::string& name) {
  check_length(checked, line, "variable", name, longest_op);
  if (name == "RETN")
    report(checked, curscreen, line, "variable RETN is that of the form's result");
  if (has_other_use(name) && name != "RETN")
    report_note(checked, curscreen, line, "variable " + name + " has another use in scripts");
}

// The option behind an action is told by its first character.
static void check_option(form& checked, int line, const std::string& option) {
  if (!option.empty() && option[0] != 'Y')
    report(checked, curscreen, line, quoted(option) + " where only Y means something");
}

void check_name(form& checked, int line) {
  notes_of(checked, curscreen).name = line;
  const char* name = first_item(cbuf);
  if (!name || !*name) {
    report(checked, curscreen, line, "the name is missing");
  } else {
    check_length(checked, line, "screen name", name, sizeof(per_screen::screenname) - 1);
  }
}

void check_title(form& checked, int line) {
  const char* title = first_item(cbuf);
  screen_notes& notes = notes_of(checked, curscreen);
  notes.title = line;
  notes.title_length = title ? static_cast<int>(std::strlen(title)) : 0;
}

// A screen's later default takes the place of an earlier one.
static bool is_default_here(const declared_action& it) {
  return it.screen == curscreen && !it.of_button;
}

void check_default(form& checked, int line) {
  const std::string action = item_of(cbuf, 1), option = item_of(cbuf, 2);
  std::erase_if(checked.actions, is_default_here);
  checked.actions.push_back({curscreen, line, action, false, option.starts_with('Y')});
  if (action.empty()) report(checked, curscreen, line, "the action is missing");
  check_length(checked, line, "action", action, sizeof(per_screen::default_string) - 1);
  check_option(checked, line, option);
  if (leaves_form(action) && action.find(' ') != std::string::npos)
    report_note(checked, curscreen, line,
                quoted("RETN=" + action) + " is no assignment for a shell");
}

// A line as it is written, without the marks that backslashes make. A letter stands for any other
// character that is marked, which would mean something without its mark.
static std::string without_marks(std::string text) {
  for (std::size_t at = 0; (at = text.find('\\', at)) < text.size(); at++) {
    text.erase(at, 1);
    if (at < text.size() && !is_letter(text[at])) text[at] = 'x';
  }
  return text;
}

// A label shows each byte of 0x80 and above as a marked one of 7 bits.
static void check_label(form& checked, int line, int n) {
  env_substitute(without_marks(line_at(checked, line)).c_str());
  const std::string label = item_of(tbuf, n);
  if (std::any_of(label.begin(), label.end(), [](char c) { return (c & 0x80) != 0; }))
    report(checked, curscreen, line,
           "label " + quoted(label) + " is not all ASCII, and is shown with other letters");
}

// The action ends at its first blank; one at its end does no harm, unless a Y follows.
static void check_action(form& checked, int line, const std::string& action,
                         const std::string& option) {
  const std::string word = action.substr(0, word_length(action));
  const bool checks = word == action && option.starts_with('Y');
  checked.actions.push_back({curscreen, line, word, true, checks});
  check_length(checked, line, "action", word, longest_op);
  if (word == action) return;
  const bool harmless =
      action.find_first_not_of(' ', word.size()) == std::string::npos && !option.starts_with('Y');
  (harmless ? report_note : report)(checked, curscreen, line,
                                    "action " + quoted(action) + " is read as " + quoted(word));
}

void check_button(form& checked, int line) {
  const bool is_placed = *file_numbers[directive_row(cbuf)] != 0;
  const int label = is_placed ? 2 : 1;
  const std::string action = item_of(cbuf, label + 1), option = item_of(cbuf, label + 2);
  check_label(checked, line, label);
  check_action(checked, line, action, option);
  check_option(checked, line, option);
}

static void check_value(form& checked, int line) {
  if (item_of(cbuf, 2) == "\xf0")
    report(checked, curscreen, line, "'\\p' makes a password field only as '\\\\p'");
}

static void check_date(form& checked, int line, const gadget_list& field) {
  if ((field.dbtype & DBT_DATE) && field.m > 0 && field.m < checked_date)
    report_note(checked, curscreen, line,
                "a DATE field for " + std::to_string(field.m) + " characters: a checked date has " +
                    std::to_string(checked_date));
}

void check_field(form& checked, int line) {
  const gadget_list& field = *s_screen[curscreen].blp;
  const std::string type = item_of(cbuf, 4), option = item_of(cbuf, 5);
  check_value(checked, line);
  check_variable(checked, line, item_of(cbuf, 3));
  if (!type.empty() && (field.dbtype & DBT_TYPEMASK) == 0)
    report(checked, curscreen, line, "unknown type " + quoted(type));
  if (!option.empty() && option != "N")
    report(checked, curscreen, line, quoted(option) + " where only N means something");
  check_date(checked, line, field);
}

// An empty state is shown, and changed, like "_".
void check_box(form& checked, int line) {
  const std::string state = item_of(cbuf, 2);
  if (!state.empty() && state != "X" && state != "_")
    report(checked, curscreen, line, quoted(state) + " where only X or _ means something");
  check_variable(checked, line, item_of(cbuf, 3));
}

void check_pop_list(form& checked, int line) {
  const gadget_list& field = *s_screen[curscreen].blp;
  bool is_entry = false;
  for (char** entry = field.list + poplist_entries; *entry; entry++)
    is_entry = is_entry || std::strcmp(*entry, field.text) == 0;
  if (!is_entry)
    report_note(checked, curscreen, line, quoted(field.text) + " is none of the list's entries");
  check_variable(checked, line, item_of(cbuf, 3));
}

// Further colons belong to the variable of a scroll window.
void check_scroll_window(form& checked, int line) {
  const gadget_list& swin = *s_screen[curscreen].last_swin;
  checked.frames.push_back(
      {curscreen, line, "the scroll window", {swin.x, swin.y, swin.w, swin.h}});
  const char* at = first_item(cbuf);
  for (int passed = 0; passed < 2; passed++) next_item(at);
  if (at) check_variable(checked, line, std::string(at, word_length(at)));
}

// References, which each end at the next "}".

static bool can_be_value(const std::string& name) {
  auto is_digit = [](char c) { return c >= '0' && c <= '9'; };
  return is_shell_name(name) || (!name.empty() && std::all_of(name.begin(), name.end(), is_digit));
}

// Judges the reference at `at`, and returns where it ends.
static std::size_t check_reference(form& checked, int line, const std::string& text,
                                   std::size_t at) {
  const std::size_t end = std::min(text.find('}', at), text.size());
  if (!can_be_value(text.substr(at + 2, end - at - 2)))
    report(checked, curscreen, line,
           quoted(text.substr(at, end + 1 - at)) +
               " gives nothing: only a name or a number may stand there");
  return end;
}

void check_references(form& checked, int line) {
  const std::string& text = line_at(checked, line);
  for (std::size_t at = 0; at < text.size(); at++) {
    if (text[at] == '\\')
      at++;  // and what it marks
    else if (text.compare(at, 2, "${") == 0)
      at = check_reference(checked, line, text, at);
  }
}

}  // namespace scrim
