// tools/check/form: the kinds of gadgets, and the cells that each takes.

#include "tools/check/form.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace scrim {

static const std::vector<kind_row> kinds = {
    {GF_BUTTON, 0, "button", "button without an action"},
    {GF_ETEXT, 1, "edit field", "edit field without a variable"},
    {GF_CHECKBOX, 1, "checkbox", "checkbox without a variable"},
    {GF_XCHECKBOX, 1, "checkbox", "checkbox without a variable"},
    {GF_POPLIST, 1, "pop list", "pop list without a variable"},
    {GF_SWIN, 0, "scroll window", nullptr},
    {GF_TEXT, 0, "text", nullptr},
};
static const kind_row other_kind = {0, 0, "gadget", nullptr};  // of one that has no row

static const kind_row& row_of(const gadget_list& gadget) {
  for (const kind_row& row : kinds)
    if (row.kind == kind_of(gadget)) return row;
  return other_kind;
}

screen_notes& notes_of(form& checked, int screen) {
  return checked.screens[static_cast<std::size_t>(screen)];
}

bool leaves_form(std::string_view action) { return action.find_first_of("><^") != 0; }

bool is_reached(const screen_notes& screen) { return screen.alone || screen.over; }

const std::string& line_at(const form& checked, int line) {
  return checked.lines[static_cast<std::size_t>(line - 1)];
}

void report(form& checked, int screen, int line, const std::string& text) {
  checked.found.insert({s_screen[screen].path, line, false, text});
}

void report_note(form& checked, int screen, int line, const std::string& text) {
  checked.found.insert({s_screen[screen].path, line, true, text});
}

area window_of(const per_screen& screen) {
  return {screen.windx, screen.windy, screen.windw, screen.windh};
}

bool inside(const area& inner, const area& outer) {
  return inner.x >= outer.x && inner.y >= outer.y && inner.x + inner.w <= outer.x + outer.w &&
         inner.y + inner.h <= outer.y + outer.h;
}

static area text_cells(const gadget_list& text) {
  const std::string_view line = text.text;
  const std::size_t indent = std::min(line.find_first_not_of(' '), line.size());
  return {text.x + static_cast<int>(indent), text.y, static_cast<int>(line.size() - indent), 1};
}

static area cells_of(const gadget_list& gadget, const kind_row& row) {
  if (row.kind == GF_TEXT) return text_cells(gadget);
  const int height = row.kind == GF_SWIN ? gadget.h : 1;
  return {gadget.x - row.brackets, gadget.y, gadget.w + 2 * row.brackets, height};
}

declaration declare(const gadget_list& gadget, int line, bool placed) {
  const kind_row& row = row_of(gadget);
  return {&gadget, &row, curscreen, line, placed, cells_of(gadget, row)};
}

}  // namespace scrim
