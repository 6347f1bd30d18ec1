// sketch/checks: a mistake that is found here would be found by scrim-check too, but at a line of
// the screen file.

#include "tools/sketch/checks.h"

#include "common/text.h"
#include "screens/model.h"
#include "tools/check/form.h"
#include "tools/check/item_rules.h"
#include "tools/sketch/source.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace scrim {

static const std::size_t longest_label = sizeof(gadget_list::text) - 1;
static const int checked_date = 19;  // MM/DD/YYYY HH MM SS

// Whether a gadget's own lines make it active at first: their keyword begins with a d.
bool is_marked(const gadget& it) {
  return it.verbatim && std::any_of(it.lines.begin(), it.lines.end(),
                                    [](const std::string& line) { return line.starts_with('d'); });
}

bool needs_first_place(const gadget& it) {
  return it.verbatim ? !is_marked(it) : it.what == kind::list;
}

static void check_length(source& from, const gadget& it, const std::string& what,
                         const std::string& text, std::size_t most) {
  if (text.size() > most)
    report(from, it.drawn,
           {what, " '", text, "' is too long: ", std::to_string(most), " characters are kept"});
  if (what != "the file" && text.find(':', text.rfind('}') + 1) != std::string::npos)
    report(from, it.drawn, {what, " '", text, "' has a colon, at which it would end"});
  if (text.find('}', std::min(text.rfind("${"), text.size())) == std::string::npos &&
      text.find("${") != std::string::npos)
    report(from, it.drawn, {what, " '", text, "' has a reference without its '}'"});
}

static void check_variable(source& from, const gadget& it) {
  if (it.what == kind::button || (it.what == kind::window && it.variable.empty())) return;
  if (it.variable.empty())
    return report(from, it.drawn,
                  {"no variable: write a text of ASCII beside it, or let the legend name one"});
  if (it.variable.size() > longest_name || !is_shell_name(it.variable))
    report(from, it.drawn,
           {"'", it.variable, "' is no variable: letters, digits and '_', ",
            std::to_string(longest_name), " at most; the legend can name another"});
  if (has_other_use(it.variable))
    report(from, it.drawn, {"the variable ", it.variable, " has another use in scripts"});
}

static void check_field(source& from, const gadget& it) {
  if (it.what != kind::field) return;
  if (it.type == "DATE" && it.most < checked_date)
    report(from, it.drawn,
           {"a date takes ", std::to_string(checked_date), " characters: draw the field ",
            std::to_string(checked_date - it.cells.w), " wider, or let the legend say 'most ",
            std::to_string(checked_date), "'"});
  if (it.password && !it.value.empty())
    report(from, it.drawn, {"a password field begins empty: it can have no value"});
  if (it.most > longest_value)
    report(from, it.drawn,
           {"a field takes ", std::to_string(longest_value), " characters at most"});
}

// The columns of a list: those of its longest word and two more. What a reference will be is not
// known.
static std::size_t list_width(const gadget& it) {
  std::size_t width = it.variable.size();
  for (const std::string& entry : it.entries) width = std::max(width, entry.size());
  if (it.value.find("${") == std::string::npos) width = std::max(width, it.value.size());
  return width + 2;
}

// Whether a value is one of these, or nothing, or one that only the script knows.
static bool is_known(const std::string& value, const std::vector<std::string>& known) {
  return value.empty() || value.find("${") != std::string::npos ||
         std::find(known.begin(), known.end(), value) != known.end();
}

static void check_box(source& from, const gadget& it) {
  if ((it.what == kind::checkbox || it.what == kind::exclusive) && !is_known(it.value, {"X", "_"}))
    report(from, it.drawn, {"a checkbox has the value X or _ at first"});
}

static void check_list(source& from, gadget& it) {
  if (it.what != kind::list) return;
  if (it.entries.size() < 2)
    report(from, it.drawn, {"a list has two entries at least: let the legend name them"});
  for (const std::string& entry : it.entries)
    check_length(from, it, "the entry", entry, longest_value);
  if (!is_known(it.value, it.entries))
    report(from, it.drawn, {"the value '", it.value, "' is none of the list's entries"});
  const std::size_t width = list_width(it);
  if (width > static_cast<std::size_t>(it.cells.w))
    report(from, it.drawn,
           {"a list as wide as its longest word and two more: draw it ",
            std::to_string(width - static_cast<std::size_t>(it.cells.w)), " wider"});
  it.cells.w = static_cast<int>(width);
}

static void check_gadget(source& from, gadget& it) {
  if (it.verbatim) return;
  if (it.what == kind::button) {
    check_length(from, it, "the label", it.label, longest_label - 1);
    check_length(from, it, "the action", it.action, longest_action);
    if (it.action.empty() || it.action == ">" || it.action == "<" ||
        it.action.find(' ') != std::string::npos)
      report(from, it.drawn, {"an action is one word: let the legend name another"});
  }
  check_variable(from, it);
  check_length(from, it, "the value", it.value, longest_value);
  check_length(from, it, "the file", it.file, 400);
  check_field(from, it);
  check_box(from, it);
  check_list(from, it);
}

static char hot_key(const gadget& it) {
  const std::size_t mark = it.label.find('_');
  return mark == std::string::npos || mark + 1 == it.label.size()
             ? '\0'
             : static_cast<char>(lower_case(it.label[mark + 1]));
}

static void check_unique(source& from, const sketch& drawn) {
  std::map<std::string, const gadget*> seen;
  for (const gadget& it : drawn.gadgets) {
    if (it.verbatim) continue;
    const bool button = it.what == kind::button;
    const std::string name = button ? std::string(1, hot_key(it)) : it.variable;
    if (name.empty() || !name[0]) continue;
    const auto [first, is_new] = seen.emplace((button ? "_" : "=") + name, &it);
    if (!is_new)
      report(from, it.drawn,
             {(button ? "two buttons with the hot key " : "two gadgets of the name "), name,
              ": the other one is in line ", std::to_string(first->second->drawn.line)});
  }
}

static void check_order(source& from, const sketch& drawn) {
  std::vector<std::size_t> sorted = drawn.order;
  std::sort(sorted.begin(), sorted.end());
  const bool whole = sorted.size() == drawn.gadgets.size() &&
                     std::adjacent_find(sorted.begin(), sorted.end()) == sorted.end();
  if (!whole) report(from, drawn.order_said, {"the order has to name every gadget, and each once"});
  if (*drawn.active == no_gadget || drawn.active == drawn.order.front()) return;
  const gadget& active = drawn.gadgets[*drawn.active];
  if (needs_first_place(active))
    report(from, active.drawn, {"what is active at first has to be the first of the order here"});
}

static void check_checked(source& from, const sketch& drawn) {
  const gadget* first = nullptr;
  for (const gadget& it : drawn.gadgets) {
    if (it.verbatim || it.what != kind::exclusive || it.value != "X") continue;
    if (first)
      report(from, it.drawn,
             {"checked, as the one in line ", std::to_string(first->drawn.line),
              " is: of these boxes one is checked at most"});
    first = &it;
  }
}

// Another screen may check the fields of this one.
static bool may_be_checked(const sketch& drawn) {
  return drawn.default_checks ||
         std::any_of(drawn.gadgets.begin(), drawn.gadgets.end(), [](const gadget& it) {
           return it.verbatim || (it.what == kind::button &&
                                  (it.checks.value_or(false) || !leaves_form(it.action)));
         });
}

static void check_required(source& from, const sketch& drawn) {
  if (may_be_checked(drawn)) return;
  for (const gadget& it : drawn.gadgets)
    if (it.required && !it.verbatim)
      report(from, it.drawn,
             {"required without effect: no button that leaves the form has 'check'"});
}

static bool has_place(const sketch& drawn, char letter) {
  return std::any_of(drawn.attached.begin(), drawn.attached.end(), [&](const attached_text& it) {
    return it.letters.find(letter) != std::string::npos;
  });
}

static void check_places(source& from, const sketch& drawn) {
  for (const char letter : {'a', 'b'}) {
    const attached_lines& said = drawn.attached_said[letter == 'a' ? 0 : 1];
    if (!said.lines.empty() && !has_place(drawn, letter))
      report(from, said.where,
             {"the picture has no place for this text: {", std::string_view(&letter, 1), "   }"});
  }
}

static void check_attached(source& from, const sketch& drawn) {
  for (const attached_text& it : drawn.attached)
    for (const char letter : it.letters)
      for (const std::string& line : drawn.attached_said[letter == 'a' ? 0 : 1].lines)
        if (line.size() > static_cast<std::size_t>(it.cells.w))
          report(from, it.drawn,
                 {"the text '", line, "' has ", std::to_string(line.size()),
                  " characters: draw this wider"});
}

void check_sketch(source& from, sketch& drawn) {
  for (gadget& it : drawn.gadgets) check_gadget(from, it);
  check_unique(from, drawn);
  if (!drawn.gadgets.empty()) check_order(from, drawn);
  check_places(from, drawn);
  check_attached(from, drawn);
  check_checked(from, drawn);
  check_required(from, drawn);
  if (drawn.name.size() > longest_screen_name)
    report(from, {1, 1},
           {"the screen's name is too long: ", std::to_string(longest_screen_name),
            " characters at most"});
}

}  // namespace scrim
