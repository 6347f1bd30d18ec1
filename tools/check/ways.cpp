// tools/check/ways: where actions lead from screen to screen, and what that does to the screens. A
// screen that is reached stands alone, or over another one, to which "^" returns; ">" and "<" leave
// that as it is.

#include "tools/check/ways.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace scrim {

static const std::size_t longest_action = sizeof(gadget_list::op) - 1;  // of a button

// The screen of each name, the first one of those that have it.
using screen_names = std::map<std::string_view, int>;

// An action of a screen, and the screen that it leads to; -1: there is none, or it is "^".
struct way {
  const declared_action* action;
  int to;
};
using ways_of_screens = std::vector<std::vector<way>>;

static const std::vector<way>& ways_of(const ways_of_screens& ways, int screen) {
  return ways[static_cast<std::size_t>(screen)];
}

static bool leads_to_screen(std::string_view action) {
  return !leaves_form(action) && action != "^";
}

static std::string place(int screen, int line) {
  return std::string(s_screen[screen].path) + ":" + std::to_string(line);
}

static screen_names names_of_screens() {
  screen_names names;
  for (int i = 0; i < screens; i++) names.emplace(s_screen[i].screenname, i);
  return names;
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

static ways_of_screens ways_of_form(const form& checked, const screen_names& names) {
  ways_of_screens ways(checked.screens.size());
  for (const declared_action& action : checked.actions) {
    const std::string_view text = action.text;
    const auto found = leads_to_screen(text) ? names.find(text.substr(1)) : names.end();
    const int to = found == names.end() ? -1 : found->second;
    ways[static_cast<std::size_t>(action.screen)].push_back({&action, to});
  }
  return ways;
}

// A button's action that is too long is a fault of its own, and at the name of the screen that it
// was to lead to.
static void check_target(form& checked, const way& it) {
  const declared_action& action = *it.action;
  const std::string name = action.text.substr(1);
  const bool is_cut = action.of_button && action.text.size() > longest_action;
  if (it.to == -1 && !is_cut)
    report(checked, action.screen, action.line,
           "no screen of the list has the name '" + name + "'");
  if (it.to != -1 && is_cut)
    report(checked, it.to, notes_of(checked, it.to).name,
           "screen name '" + name + "' has " + std::to_string(name.size()) +
               " characters, and a button's action leads to " + std::to_string(longest_action - 1));
}

static void check_targets(form& checked, const ways_of_screens& ways) {
  for (const std::vector<way>& from : ways)
    for (const way& it : from)
      if (leads_to_screen(it.action->text)) check_target(checked, it);
}

// Where screens are reached: each with whether it stands over another one.
using reached_screens = std::vector<std::pair<int, bool>>;

static void reach(form& checked, int screen, bool over, reached_screens& reached) {
  screen_notes& notes = notes_of(checked, screen);
  bool& is_known = over ? notes.over : notes.alone;
  if (!is_known) reached.emplace_back(screen, over);
  is_known = true;
}

static void follow(form& checked, const ways_of_screens& ways) {
  reached_screens reached;
  reach(checked, 0, false, reached);
  for (std::size_t i = 0; i < reached.size(); i++) {
    const auto [screen, over] = reached[i];
    for (const way& it : ways_of(ways, screen)) {
      if (it.action->text == "^") notes_of(checked, screen).returns = true;
      if (it.to != -1) reach(checked, it.to, over || it.action->text[0] == '^', reached);
    }
  }
}

static void check_returns(form& checked) {
  for (const declared_action& action : checked.actions) {
    const screen_notes& screen = notes_of(checked, action.screen);
    if (action.text != "^" || !screen.alone) continue;
    if (screen.over) {
      report_note(checked, action.screen, action.line,
                  "\"^\" has nothing to return to where no screen is below");
    } else {
      report(checked, action.screen, action.line,
             "\"^\" has nothing to return to: no action pops this screen up");
    }
  }
}

// Frames and scroll windows, which are drawn when their screen is first shown, and gone when it is
// painted again.

static bool leads_back(const ways_of_screens& ways, int from, int to) {
  std::vector<bool> known(ways.size());
  std::vector<int> reached = {from};
  for (std::size_t i = 0; i < reached.size(); i++) {
    if (reached[i] == to) return true;
    for (const way& it : ways_of(ways, reached[i])) {
      if (it.to == -1 || known[static_cast<std::size_t>(it.to)]) continue;
      known[static_cast<std::size_t>(it.to)] = true;
      reached.push_back(it.to);
    }
  }
  return false;
}

// Whether a screen can be painted again after this action of it.
static bool comes_back(const form& checked, const ways_of_screens& ways, const way& it) {
  const declared_action& action = *it.action;
  if (action.text == "^") return checked.screens[static_cast<std::size_t>(action.screen)].over;
  if (leaves_form(action.text)) {
    return action.checks &&
           std::any_of(checked.gadgets.begin(), checked.gadgets.end(),
                       [](const auto& gadget) { return is_checked(*gadget.gadget); });
  }
  return it.to != -1 && (action.text[0] == '^' || leads_back(ways, it.to, action.screen));
}

// The line after whose use a screen is painted again; 0: there is none.
static int line_of_return(const form& checked, const ways_of_screens& ways, int screen) {
  for (const way& it : ways_of(ways, screen))
    if (comes_back(checked, ways, it)) return it.action->line;
  for (const declaration& it : checked.gadgets)
    if (it.screen == screen && kind_of(*it.gadget) == GF_POPLIST) return it.line;
  return 0;
}

// A line of text in the place of a frame's upper edge draws it each time.
static bool has_stand_in(const form& checked, const declared_frame& frame) {
  const area upper_edge = {frame.cells.x, frame.cells.y, frame.cells.w, 1};
  return std::any_of(checked.gadgets.begin(), checked.gadgets.end(), [&](const declaration& it) {
    return it.screen == frame.screen && kind_of(*it.gadget) == GF_TEXT &&
           inside(upper_edge, it.cells);
  });
}

static void check_frames(form& checked, const ways_of_screens& ways) {
  std::map<int, int> returns;  // of each screen that has frames
  for (const declared_frame& frame : checked.frames) {
    const auto [found, is_new] = returns.emplace(frame.screen, 0);
    if (is_new) found->second = line_of_return(checked, ways, frame.screen);
    if (found->second != 0 && !has_stand_in(checked, frame))
      report_note(checked, frame.screen, frame.line,
                  std::string(frame.name) + " is drawn once, and gone after what line " +
                      std::to_string(found->second) + " does");
  }
}

bool checks_fields(const form& checked) {
  return std::any_of(checked.actions.begin(), checked.actions.end(),
                     [](const auto& it) { return it.checks && leaves_form(it.text); });
}

bool is_checked(const gadget_list& gadget) {
  return (gadget.flags & GF_ETEXT) && (gadget.dbtype & (DBT_REQUIRED | DBT_DATE));
}

void check_ways(form& checked) {
  const screen_names names = names_of_screens();
  const ways_of_screens ways = ways_of_form(checked, names);
  check_names(checked, names);
  check_targets(checked, ways);
  follow(checked, ways);
  check_returns(checked);
  check_frames(checked, ways);
}

}  // namespace scrim
