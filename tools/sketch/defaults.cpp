// sketch/defaults: Enter goes from a gadget to the one declared before it. So the button that goes
// on is declared first, then the fields from the last to the first, and the other buttons at the
// end.

#include "tools/sketch/defaults.h"

#include "common/text.h"
#include "screens/directives.h"
#include "tools/check/enter.h"
#include "tools/check/form.h"
#include "tools/sketch/checks.h"
#include "tools/sketch/source.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace scrim {

// Buttons.

static bool is_button(const gadget& it) {
  if (!it.verbatim) return it.what == kind::button;
  const int row = directive_row(it.lines[0]);
  return row != -1 && std::string_view(file_funcs[row]).ends_with("button:");
}

// A label as a word for scripts: small letters and digits, a "-" for what is between them.
static std::string word_of(const std::string& label) {
  std::string word;
  for (const char c : label) {
    const bool good = is_letter(c) || (c >= '0' && c <= '9');
    if (good) word += static_cast<char>(lower_case(c));
    if (!good && !word.empty() && word.back() != '-') word += '-';
  }
  if (word.ends_with('-')) word.pop_back();
  return word.substr(0, longest_action);
}

static std::string default_action(const std::string& label) {
  const std::string word = word_of(label);
  return word == "discard" || word == "quit" ? "cancel" : word;
}

static bool may_go_on(const gadget& it) {
  if (it.what != kind::button || it.verbatim) return false;
  const std::string word = word_of(it.key);
  return it.action.find_first_of("<^") != 0 && word != "help" && !is_word_for_giving_up(word) &&
         !is_word_for_giving_up(it.action);
}

// Whether gadget `a` stands before `b` in reading order. Those that are not drawn come last, as the
// legend has them.
static bool reads_before(const gadget& a, const gadget& b) {
  if (a.verbatim || b.verbatim) return !a.verbatim && b.verbatim;
  return std::tuple(a.cells.y, a.cells.x) < std::tuple(b.cells.y, b.cells.x);
}

static std::vector<std::size_t> reading_order(const sketch& drawn) {
  std::vector<std::size_t> order(drawn.gadgets.size());
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    return reads_before(drawn.gadgets[a], drawn.gadgets[b]);
  });
  return order;
}

static std::size_t button_that_goes_on(const sketch& drawn) {
  for (const std::size_t i : reading_order(drawn))
    if (may_go_on(drawn.gadgets[i])) return i;
  return no_gadget;
}

static void complete_buttons(sketch& drawn) {
  for (gadget& it : drawn.gadgets)
    if (it.what == kind::button && it.action.empty()) it.action = default_action(it.key);
  const std::size_t first = button_that_goes_on(drawn);
  for (std::size_t i = 0; i < drawn.gadgets.size(); i++) {
    gadget& it = drawn.gadgets[i];
    if (it.what == kind::button && !it.checks) it.checks = i == first && leaves_form(it.action);
  }
}

static void complete_default(sketch& drawn) {
  const std::size_t first = button_that_goes_on(drawn);
  if (drawn.default_action || first == no_gadget) return;
  drawn.default_action = drawn.gadgets[first].action;
  drawn.default_checks = *drawn.gadgets[first].checks;
}

// Fields.

std::string variable_of(const std::string& label) {
  std::string name;
  for (const char c : label) {
    const bool good = is_letter(c) || (c >= '0' && c <= '9');
    if (good) name += static_cast<char>(upper_case(c));
    if (!good && !name.empty() && name.back() != '_') name += '_';
  }
  name.resize(std::min(name.size(), longest_name));
  if (name.ends_with('_')) name.pop_back();
  return name;
}

static void complete_fields(sketch& drawn) {
  for (gadget& it : drawn.gadgets) {
    const bool box = it.what == kind::checkbox || it.what == kind::exclusive;
    if (it.what == kind::field && it.most == 0) it.most = std::min(it.cells.w, longest_value);
    if (box && it.variable.empty()) it.variable = variable_of(it.key);
  }
}

// Order.

static void complete_order(sketch& drawn) {
  if (!drawn.order.empty()) return;
  const std::size_t first = button_that_goes_on(drawn);
  std::vector<std::size_t> fields, others;
  for (const std::size_t i : reading_order(drawn))
    if (i != first) (is_button(drawn.gadgets[i]) ? others : fields).push_back(i);
  std::reverse(fields.begin(), fields.end());
  std::vector<std::size_t>& order = drawn.order;
  if (first != no_gadget) order.push_back(first);
  // A list has no keyword that makes it active: only the first gadget of the file is so by itself.
  if (!fields.empty() && drawn.gadgets[fields.back()].what == kind::list &&
      drawn.active.value_or(fields.back()) == fields.back()) {
    order.insert(order.begin(), others.begin(), others.end());
    order.insert(order.begin(), fields.back());
    fields.pop_back();
    others.clear();
  }
  order.insert(order.end(), fields.begin(), fields.end());
  order.insert(order.end(), others.begin(), others.end());
}

static void complete_active(sketch& drawn) {
  if (drawn.active) return;
  drawn.active = no_gadget;
  for (const std::size_t i : drawn.order) {
    if (!is_marked(drawn.gadgets[i])) continue;
    drawn.active = i;
    return;
  }
  for (const std::size_t i : reading_order(drawn)) {
    if (drawn.gadgets[i].verbatim) continue;
    if (!is_button(drawn.gadgets[i])) {
      drawn.active = i;
      return;
    }
  }
  const std::size_t first = button_that_goes_on(drawn);
  if (first != no_gadget) drawn.active = first;
  if (first == no_gadget && !drawn.order.empty()) drawn.active = drawn.order.front();
}

// Frames. What draws them is done once; a text is painted each time.

static bool is_checked(const gadget& it) {
  return it.what == kind::field && (it.required || it.type == "DATE");
}

bool comes_back(const sketch& drawn) {
  bool checked = false, checks = false, leads = false;
  for (const gadget& it : drawn.gadgets) {
    if (it.verbatim) continue;
    checked = checked || is_checked(it);
    checks = checks || it.checks.value_or(false);
    leads = leads || it.what == kind::list || (it.what == kind::button && !leaves_form(it.action));
  }
  return leads || (checks && checked);
}

static void add_run(source& from, sketch& drawn, int x, int y, const std::string& text) {
  drawn.texts.push_back({x, y, text, {}});
  if (x < first_text_column || y < first_text_row)
    report(from, {drawn.corner.line + y, drawn.corner.column + x},
           {"this screen is painted again, and a frame in it comes back only "
            "from the window's third row and fifth column on"});
}

static void add_edges(source& from, sketch& drawn, const extent& frame) {
  const auto& [x, y, w, h] = frame;
  std::string edge(static_cast<std::size_t>(w), '-');
  edge.front() = edge.back() = '+';
  for (const int row : {y, y + h - 1}) add_run(from, drawn, x, row, edge);
  for (int row = y + 1; row < y + h - 1; row++)
    for (const int column : {x, x + w - 1}) add_run(from, drawn, column, row, "|");
}

static bool crosses_window(const sketch& drawn, int y, int x, int end) {
  return std::any_of(drawn.gadgets.begin(), drawn.gadgets.end(), [&](const gadget& it) {
    return it.what == kind::window && !it.verbatim && y >= it.cells.y &&
           y < it.cells.y + it.cells.h && x < it.cells.x + it.cells.w && end > it.cells.x;
  });
}

// Whether `behind` can be written as the end of `run`, with blanks for what is between them. What
// stands in for a scroll window's frame stays within the window.
static bool can_join(const sketch& drawn, const text_run& run, const text_run& behind) {
  const auto end = run.x + static_cast<int>(run.text.size());
  const bool shifts = std::any_of(run.text.begin(), run.text.end(),
                                  [](char c) { return (c & 0x80) != 0 || c == '$'; });
  return run.y == behind.y && end <= behind.x && !shifts &&
         !crosses_window(drawn, run.y, run.x, behind.x + static_cast<int>(behind.text.size()));
}

static void join_runs(sketch& drawn) {
  std::vector<text_run>& all = drawn.texts;
  std::stable_sort(all.begin(), all.end(), [](const text_run& a, const text_run& b) {
    return std::tuple(a.y, a.x) < std::tuple(b.y, b.x);
  });
  std::vector<text_run> joined;
  for (const text_run& it : all) {
    if (joined.empty() || !can_join(drawn, joined.back(), it)) {
      joined.push_back(it);
    } else {
      std::string& text = joined.back().text;
      text.resize(static_cast<std::size_t>(it.x - joined.back().x), ' ');
      text += it.text;
    }
  }
  all = joined;
}

// Lets texts stand in for the frames, where these would not come back.
static void complete_frames(source& from, sketch& drawn) {
  if (!comes_back(drawn)) return;
  for (const extent& it : drawn.boxes) add_edges(from, drawn, it);
  drawn.boxes.clear();
  for (const gadget& it : drawn.gadgets)
    if (it.what == kind::window && !it.verbatim) add_edges(from, drawn, it.cells);
  join_runs(drawn);
}

// The texts come after a gadget that is the first of the file. They leave it with their leading
// blanks alone, so a row of it is cut there in two.
static void uncover_first(sketch& drawn) {
  if (drawn.order.empty() || drawn.active != drawn.order.front()) return;
  const gadget& first = drawn.gadgets[drawn.order.front()];
  if (first.verbatim || !needs_first_place(first)) return;
  for (std::size_t i = 0; i < drawn.texts.size(); i++) {
    text_run& it = drawn.texts[i];
    const auto left = static_cast<std::size_t>(first.cells.x - it.x);
    if (it.y != first.cells.y || it.x > first.cells.x || it.text.size() <= left) continue;
    const std::size_t behind = it.text.find_first_not_of(' ', left);
    const text_run rest = {it.x + static_cast<int>(behind), it.y, it.text.substr(behind), it.drawn};
    it.text.resize(it.text.find_last_not_of(' ', left) + 1);
    drawn.texts.insert(drawn.texts.begin() + static_cast<std::ptrdiff_t>(i) + 1, rest);
    return;
  }
}

void complete(source& from, sketch& drawn) {
  complete_buttons(drawn);
  complete_default(drawn);
  complete_fields(drawn);
  complete_order(drawn);
  complete_active(drawn);
  complete_frames(from, drawn);
  uncover_first(drawn);
  check_sketch(from, drawn);
}

}  // namespace scrim
