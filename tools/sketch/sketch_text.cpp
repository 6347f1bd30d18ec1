// sketch/sketch_text: whether a sketch says what it should is found out by reading it back. What
// comes back otherwise is moved to the legend, as the screen file has it, until all is the same.

#include "tools/sketch/sketch_text.h"

#include "tools/sketch/defaults.h"
#include "tools/sketch/legend_text.h"
#include "tools/sketch/painter.h"
#include "tools/sketch/reading.h"
#include "tools/sketch/source.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace scrim {

static std::string row_text(const std::vector<std::string>& cells) {
  std::string text;
  for (const std::string& cell : cells) text += cell;
  return text;
}

// Whether a label without a hot key is one of the screen's buttons.
static bool is_label(const sketch& drawn, std::string_view label) {
  return std::any_of(drawn.gadgets.begin(), drawn.gadgets.end(), [&](const gadget& it) {
    return !it.verbatim && it.what == kind::button && !has_hot_key(it) && it.key == label;
  });
}

static std::size_t find_in(const sketch& other, const gadget& it) {
  for (std::size_t i = 0; i < other.gadgets.size(); i++) {
    const gadget& candidate = other.gadgets[i];
    if (candidate.verbatim != it.verbatim) continue;
    if (it.verbatim ? candidate.lines == it.lines
                    : candidate.what == it.what && candidate.cells.x == it.cells.x &&
                          candidate.cells.y == it.cells.y)
      return i;
  }
  return no_gadget;
}

// Whether a button checks the fields by itself depends on the actions that it and others have.
static void complete_checks(draft& made) {
  sketch said = made.plain;
  for (gadget& it : said.gadgets) {
    const std::size_t wanted = it.verbatim ? no_gadget : find_in(made.wanted.drawn, it);
    if (wanted != no_gadget) it.action = made.wanted.drawn.gadgets[wanted].action;
    it.checks.reset();
  }
  source nowhere;
  complete(nowhere, said);
  for (std::size_t i = 0; i < said.gadgets.size(); i++)
    made.plain.gadgets[i].checks = said.gadgets[i].checks;
}

// What the picture says by itself. The gadgets that are not drawn are added in their order, as the
// legend will.
static void read_plain(draft& made) {
  source from = {"", made.lines, {}};
  picture seen;
  const sketch& drawn = made.wanted.drawn;
  find_frame(from, seen, made.plain);
  read_inside(from, seen, made.plain,
              [&](std::string_view label) { return is_label(drawn, label); });
  for (const gadget& it : drawn.gadgets) {
    if (!it.verbatim) continue;
    made.plain.gadgets.push_back(it);
    if (it.key.empty()) made.plain.gadgets.back().key = it.variable.empty() ? "line" : it.variable;
  }
  complete(from, made.plain);
  complete_checks(made);
}

// What has not come back from the picture becomes verbatim. Returns whether all has.
static bool find_gadgets(draft& made) {
  bool whole = true;
  for (gadget& it : made.wanted.drawn.gadgets) {
    made.in_plain.push_back(find_in(made.plain, it));
    if (made.in_plain.back() != no_gadget) continue;
    it.verbatim = true;
    whole = false;
  }
  return whole;
}

// A draft of what is not verbatim. Returns false when more has to become so.
static bool write_draft(const read_form& form, draft& made) {
  made.wanted = form;
  const grid cells = paint(made.wanted);
  made.lines = form.drawn.comments;
  if (!made.lines.empty()) made.lines.push_back("");
  made.top = static_cast<int>(made.lines.size());
  for (const auto& row : cells) made.lines.push_back(row_text(row));
  read_plain(made);
  if (!find_gadgets(made)) return false;
  write_legend(made);
  return true;
}

// Reading back.

static bool is_same(const gadget& a, const gadget& b) {
  const bool masked = a.password && b.password;
  return a.what == b.what && a.label == b.label && a.variable == b.variable &&
         (a.value == b.value || masked) && a.type == b.type && a.required == b.required &&
         a.password == b.password && a.most == b.most && a.entries == b.entries &&
         a.attached == b.attached && a.action == b.action && a.checks == b.checks &&
         a.file == b.file && a.highlight == b.highlight && a.start == b.start &&
         a.deferred == b.deferred &&
         (a.what == kind::button || (a.cells.w == b.cells.w && a.cells.h == b.cells.h));
}

// The cells of a text that are no blanks, by their places.
using text_cells = std::map<std::pair<int, int>, std::string>;

static void add_cells(text_cells& all, const text_run& run) {
  const std::vector<std::string> cells = cells_of(run.text);
  for (std::size_t i = 0; i < cells.size(); i++)
    if (cells[i] != " ") all[{run.y, run.x + static_cast<int>(i)}] = cells[i];
}

static bool is_in_row(const text_cells& all, int y, const text_cells& other) {
  auto in_row = [&](const auto& it) { return it.first.first == y && !other.contains(it.first); };
  return std::any_of(all.begin(), all.end(), in_row);
}

// Whether a text has come back as it is, or is as wide as it is long: then it may as well have been
// cut or joined.
static bool comes_back(const text_run& run, const sketch& back) {
  const bool shifts = std::any_of(run.text.begin(), run.text.end(),
                                  [](char c) { return (c & 0x80) != 0 || c == '$'; });
  return !shifts || std::any_of(back.texts.begin(), back.texts.end(), [&](const text_run& it) {
    return it.x == run.x && it.y == run.y && it.text == run.text;
  });
}

// Makes verbatim those texts whose rows have come back otherwise.
static bool keep_texts(read_form& form, const sketch& back) {
  text_cells wanted, found;
  for (const read_text& it : form.texts)
    if (!it.verbatim) add_cells(wanted, it.run);
  for (const text_run& it : back.texts) add_cells(found, it);
  bool same = true;
  for (read_text& it : form.texts) {
    if (it.verbatim) continue;
    it.verbatim = is_in_row(wanted, it.run.y, found) || is_in_row(found, it.run.y, wanted) ||
                  !comes_back(it.run, back);
    same = same && !it.verbatim;
  }
  return same;
}

static bool keep_gadgets(read_form& form, const sketch& back) {
  bool same = true;
  for (gadget& it : form.drawn.gadgets) {
    if (it.verbatim) continue;
    const std::size_t found = find_in(back, it);
    it.verbatim = found == no_gadget || !is_same(it, back.gadgets[found]);
    same = same && !it.verbatim;
  }
  return same;
}

// Makes verbatim what a mistake is about.
static void keep_mistaken(draft& made, const mistake& wrong, const sketch& back) {
  const auto said = made.about.find(wrong.where.line);
  if (said != made.about.end()) made.wanted.drawn.gadgets[said->second].verbatim = true;
  for (gadget& it : made.wanted.drawn.gadgets) {
    const std::size_t found = it.verbatim ? no_gadget : find_in(back, it);
    if (found == no_gadget) continue;
    const place& drawn = back.gadgets[found].drawn;
    if (drawn.line == wrong.where.line && drawn.column == wrong.where.column) it.verbatim = true;
  }
  for (read_text& it : made.wanted.texts)
    it.verbatim = it.verbatim || it.run.y == wrong.where.line - 1 - made.top;
}

// The first line of a sketch's texts, which is active at first where no gadget is.
static std::string first_text(const sketch& drawn) {
  for (const text_run& it : drawn.texts)
    if (it.y == first_text_row)
      return std::string(static_cast<std::size_t>(it.x - first_text_column), ' ') + it.text;
  return "";
}

static void keep_first_text(read_form& form, const sketch& back) {
  if (form.drawn.active != no_gadget || form.drawn.gadgets.empty() || form.whole_blocks) return;
  form.whole_blocks = first_text(back) != form.first_text ||
                      std::any_of(form.texts.begin(), form.texts.end(),
                                  [](const read_text& it) { return it.verbatim; });
  if (form.whole_blocks)
    for (read_text& it : form.texts) it.verbatim = true;
}

// Whether the order, the active gadget and the rest are those that were wanted.
static bool is_whole(const draft& made, const sketch& back) {
  const sketch& wanted = made.wanted.drawn;
  std::vector<std::size_t> order;
  order.reserve(wanted.order.size());
  for (const std::size_t i : wanted.order) order.push_back(find_in(back, wanted.gadgets[i]));
  const std::size_t active = wanted.active.value_or(no_gadget);
  return order == back.order && wanted.title == back.title && wanted.window == back.window &&
         wanted.default_action == back.default_action.value_or("default") &&
         wanted.default_checks == back.default_checks &&
         (active == no_gadget ? no_gadget : find_in(back, wanted.gadgets[active])) ==
             back.active.value_or(no_gadget);
}

// Reads the draft back. Returns whether it says what it should; what does not becomes verbatim.
static bool comes_back(draft& made) {
  source from = {"", made.lines, {}};
  const sketch back = read_sketch(from);
  bool same = keep_gadgets(made.wanted, back);
  same = keep_texts(made.wanted, back) && same;
  const bool kept_blocks = made.wanted.whole_blocks;
  keep_first_text(made.wanted, back);
  same = same && made.wanted.whole_blocks == kept_blocks;
  for (const mistake& wrong : from.mistakes) keep_mistaken(made, wrong, back);
  return same && from.mistakes.empty() && is_whole(made, back);
}

static void keep_all(read_form& form) {
  for (gadget& it : form.drawn.gadgets) it.verbatim = true;
  for (read_text& it : form.texts) it.verbatim = true;
  for (read_box& it : form.boxes) it.verbatim = true;
  for (read_attached& it : form.attached) it.verbatim = true;
}

std::vector<std::string> sketch_text(read_form form) {
  const int most_drafts = 9;
  for (int i = 0; i <= most_drafts; i++) {
    if (i == most_drafts) keep_all(form);
    draft made;
    if (write_draft(form, made) && comes_back(made)) return made.lines;
    form = made.wanted;
  }
  return {};
}

}  // namespace scrim
