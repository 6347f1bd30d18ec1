// tools/check/form_rules: hot keys, variables, names of screens, actions that lead to them, and
// fields that are checked when the form is left. What covers what is judged in overlaps.

#include "tools/check/form_rules.h"

#include "tools/check/overlaps.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace scrim {

// The screen of each name, the first one of those that have it.
using screen_names = std::map<std::string_view, int>;

static screen_names names_of_screens() {
  screen_names names;
  for (int i = 0; i < screens; i++) names.emplace(s_screen[i].screenname, i);
  return names;
}

static bool is_button(const gadget_list& gadget) { return kind_of(gadget) == GF_BUTTON; }

static bool has_variable(const gadget_list& gadget) {
  return *gadget.op && (kind_of(gadget) & ~(GF_BUTTON | GF_TEXT)) != 0;
}

static void check_hot_keys(form& checked) {
  std::map<std::pair<int, char>, int> lines;  // of a screen's hot keys: who has each first
  for (const declaration& it : checked.gadgets) {
    const char key = it.gadget->hotkey;
    if (!key) continue;
    const auto [first, is_new] = lines.emplace(std::pair(it.screen, key), it.line);
    if (!is_new)
      report(checked, it.screen, it.line,
             std::string("hot key '") + key + "' is that of line " + std::to_string(first->second) +
                 " too");
  }
}

static std::string place(int screen, int line) {
  return std::string(s_screen[screen].path) + ":" + std::to_string(line);
}

static void check_variables(form& checked) {
  std::map<std::string_view, const declaration*> last;
  for (const declaration& it : checked.gadgets) {
    if (!has_variable(*it.gadget)) continue;
    const declaration*& other = last[it.gadget->op];
    if (other)
      report(checked, it.screen, it.line,
             std::string("variable ") + it.gadget->op + " is that of " +
                 place(other->screen, other->line) + " too");
    other = &it;
  }
}

static void check_names(form& checked, const screen_names& names) {
  for (int i = 0; i < screens; i++) {
    const std::string name = s_screen[i].screenname;
    const int same = names.at(name);
    if (same == i || name.empty()) continue;
    report(checked, i, notes_of(checked, i).name,
           "screen name " + name + " is that of " + place(same, notes_of(checked, same).name) +
               " too");
  }
}

// "^" alone returns.
static bool leads_to_screen(std::string_view action) {
  return action.starts_with('>') || action.starts_with('<') ||
         (action.starts_with('^') && action.size() > 1);
}

static void check_action(form& checked, const screen_names& names, int screen, int line,
                         const std::string& action) {
  if (leads_to_screen(action) && !names.contains(action.substr(1)))
    report(checked, screen, line, "no screen of the list has the name '" + action.substr(1) + "'");
}

static void check_actions(form& checked, const screen_names& names) {
  for (int i = 0; i < screens; i++)
    check_action(checked, names, i, notes_of(checked, i).default_action,
                 s_screen[i].default_string);
  for (const declaration& it : checked.gadgets)
    if (is_button(*it.gadget)) check_action(checked, names, it.screen, it.line, it.gadget->op);
}

// The actions that a screen's default and its buttons have.
static std::vector<std::string_view> actions_of(const per_screen& screen) {
  std::vector<std::string_view> actions = {screen.default_string};
  for (const gadget_list* gadget = screen.gadget_lp; gadget; gadget = gadget->next)
    if (is_button(*gadget)) actions.emplace_back(gadget->op);
  return actions;
}

// Notes where an action of a screen leads, which is added to `reached` when it is new.
static void follow(form& checked, const screen_names& names, std::string_view action,
                   std::vector<int>& reached) {
  const auto target = leads_to_screen(action) ? names.find(action.substr(1)) : names.end();
  if (target == names.end()) return;
  screen_notes& notes = notes_of(checked, target->second);
  if (action.starts_with('^')) notes.pops_up = true;
  if (!notes.reached) reached.push_back(target->second);
  notes.reached = true;
}

static void follow_actions(form& checked, const screen_names& names) {
  std::vector<int> reached = {0};
  notes_of(checked, 0).reached = true;
  for (std::size_t i = 0; i < reached.size(); i++) {
    const int screen = reached[i];
    for (const std::string_view action : actions_of(s_screen[screen])) {
      if (action == "^") notes_of(checked, screen).returns = true;
      follow(checked, names, action, reached);
    }
  }
}

static bool is_checked(const gadget_list& gadget) {
  return (gadget.flags & GF_ETEXT) && (gadget.dbtype & (DBT_REQUIRED | DBT_DATE));
}

// A field that fails its check takes its screen to the top of the stack: "^" there has nothing to
// return to, unless the screen has been popped up again.
static void check_checked_fields(form& checked) {
  for (const declaration& it : checked.gadgets) {
    if (!is_checked(*it.gadget)) continue;
    const screen_notes& screen = notes_of(checked, it.screen);
    if ((it.gadget->dbtype & DBT_REQUIRED) && !screen.reached)
      report(checked, it.screen, it.line, "required field on a screen that no action leads to");
    if (screen.pops_up && screen.returns)
      report_note(checked, it.screen, it.line,
                  "a field that is checked on a pop-up that \"^\" leaves");
  }
}

void check_form(form& checked) {
  const screen_names names = names_of_screens();
  check_overlaps(checked);
  check_hot_keys(checked);
  check_variables(checked);
  check_names(checked, names);
  check_actions(checked, names);
  follow_actions(checked, names);
  check_checked_fields(checked);
}

}  // namespace scrim
