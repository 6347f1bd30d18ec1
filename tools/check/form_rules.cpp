// tools/check/form_rules: hot keys, variables, groups of boxes, titles, first gadgets, and fields
// that are checked when the form is left. What covers what is judged in overlaps, where actions and
// Enter lead in ways and enter.

#include "tools/check/form_rules.h"

#include "tools/check/enter.h"
#include "tools/check/overlaps.h"
#include "tools/check/ways.h"

#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace scrim {

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

static void check_boxes(form& checked) {
  std::map<int, int> lines;  // of a screen's group: which one is checked first
  for (const declaration& it : checked.gadgets) {
    save_text** text = it.gadget->tlink;
    if (text && !*text)
      report(checked, it.screen, it.line,
             std::string("no file of the list has the ") + (text == &atext ? "atext" : "btext") +
                 " that this checkbox shows");
    if (kind_of(*it.gadget) != GF_XCHECKBOX || *it.gadget->text != 'X') continue;
    const auto [first, is_new] = lines.emplace(it.screen, it.line);
    if (!is_new)
      report(checked, it.screen, it.line,
             "checked at first, as the box of its group in line " + std::to_string(first->second) +
                 " is");
  }
}

// A title may cover the whole upper edge, but looks good only between its corners.
static void check_title_width(form& checked, int i) {
  const screen_notes& notes = notes_of(checked, i);
  const per_screen& screen = s_screen[i];
  const int fit = screen.windw - 2;
  if (notes.title_length <= fit || fit < 0 || (screen.screentype & ST_OVERLAY)) return;
  (notes.title_length > screen.windw ? report : report_note)(
      checked, i, notes.title,
      "the title has " + std::to_string(notes.title_length) + " characters, and " +
          std::to_string(fit) + " fit");
}

// Keys other than Enter do not lead out of a text.
static bool starts_in_text(const per_screen& screen) {
  if (!screen.gadget_lp || kind_of(*screen.gadget_lp) != GF_TEXT) return false;
  bool has_way_out = false;
  for (const gadget_list* gadget = screen.gadget_lp; gadget; gadget = gadget->next) {
    if (gadget->flags & GF_DEFAULT) return false;
    has_way_out = has_way_out || navigable(*gadget);
  }
  return has_way_out;
}

static void check_first_gadgets(form& checked) {
  for (const declaration& it : checked.gadgets)
    if (it.gadget->gadgetid == 0 && starts_in_text(s_screen[it.screen]))
      report_note(checked, it.screen, it.line,
                  "this text comes first, and is active at first: no gadget has a d");
}

static void check_required(form& checked, const declaration& it, bool is_ever_checked) {
  if (!(it.gadget->dbtype & DBT_REQUIRED)) return;
  if (!is_ever_checked)
    report(checked, it.screen, it.line, "N without effect: no action that leaves the form has a Y");
  if (!is_reached(notes_of(checked, it.screen)))
    report(checked, it.screen, it.line, "required field on a screen that no action leads to");
}

// A field that fails its check takes its screen to the top of the stack: "^" there has nothing to
// return to, unless the screen has been popped up again.
static void check_checked_fields(form& checked) {
  const bool is_ever_checked = checks_fields(checked);
  for (const declaration& it : checked.gadgets) {
    if (!is_checked(*it.gadget)) continue;
    const screen_notes& screen = notes_of(checked, it.screen);
    check_required(checked, it, is_ever_checked);
    if (is_ever_checked && screen.over && screen.returns)
      report_note(checked, it.screen, it.line,
                  "a field that is checked on a pop-up that \"^\" leaves");
  }
}

void check_form(form& checked) {
  check_overlaps(checked);
  check_hot_keys(checked);
  check_variables(checked);
  check_boxes(checked);
  for (int i = 0; i < screens; i++) check_title_width(checked, i);
  check_first_gadgets(checked);
  check_ways(checked);
  check_checked_fields(checked);
  check_enter(checked);
}

}  // namespace scrim
