// tools/check/enter: Enter goes from a field to the gadget declared before it, past texts, and from
// the first to the last one. People press it in the last field, and expect the form to go on.

#include "tools/check/enter.h"

#include "common/text.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace scrim {

static const std::string_view words_for_giving_up[] = {
    "abort", "back", "cancel", "discard", "exit", "no", "quit",
};

// A screen's gadgets but for its texts, in their order.
using gadgets_of_screen = std::vector<const declaration*>;

static bool is_button(const declaration& it) { return kind_of(*it.gadget) == GF_BUTTON; }

static bool checks(const declaration& it) {
  return is_button(it) && leaves_form(it.gadget->op) && (it.gadget->dbtype & DBT_VALIDATE);
}

bool is_word_for_giving_up(std::string word) {
  std::transform(word.begin(), word.end(), word.begin(),
                 [](char c) { return static_cast<char>(lower_case(c)); });
  return std::find(std::begin(words_for_giving_up), std::end(words_for_giving_up), word) !=
         std::end(words_for_giving_up);
}

// Whether a button takes the user out of the screen without what was to be done there. `others`
// says whether some button of the screen checks the fields.
static bool gives_up(const declaration& it, bool others) {
  const std::string_view action = it.gadget->op;
  if (!leaves_form(action)) return action == "^" || action[0] == '<';
  return !checks(it) && (others || is_word_for_giving_up(std::string(action)));
}

static bool goes_on(const declaration& it, bool others) {
  const std::string_view action = it.gadget->op;
  return is_button(it) && (leaves_form(action) || action[0] == '>') && !gives_up(it, others);
}

static void check_screen(form& checked, const gadgets_of_screen& gadgets) {
  auto any = [&](auto is_it) {
    return std::any_of(gadgets.begin(), gadgets.end(), [&](auto* it) { return is_it(*it); });
  };
  const bool some_check = any(checks);
  if (!any([&](const declaration& it) { return goes_on(it, some_check); })) return;
  for (std::size_t i = 0; i < gadgets.size(); i++) {
    const declaration &it = *gadgets[i], &behind = *gadgets[(i + 1) % gadgets.size()];
    if (is_button(it) && !is_button(behind) && gives_up(it, some_check))
      report_note(checked, it.screen, it.line,
                  std::string("Enter in the ") + behind.kind->name + " of line " +
                      std::to_string(behind.line) + " leads to this button, which gives up");
  }
}

void check_enter(form& checked) {
  std::vector<gadgets_of_screen> gadgets(checked.screens.size());
  for (const declaration& it : checked.gadgets)
    if (navigable(*it.gadget)) gadgets[static_cast<std::size_t>(it.screen)].push_back(&it);
  for (const gadgets_of_screen& screen : gadgets) check_screen(checked, screen);
}

}  // namespace scrim
