// sketch/sketch_text: whether a sketch says what it should is found out by reading it back. What
// comes back otherwise is moved to the legend, as the screen file has it, until all is the same.

#include "tools/sketch/sketch_text.h"

#include "tools/sketch/defaults.h"
#include "tools/sketch/painter.h"
#include "tools/sketch/picture.h"
#include "tools/sketch/reading.h"
#include "tools/sketch/source.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scrim {

// A sketch that is being written: what it shall say, and what its picture says by itself.
struct draft {
  read_form wanted;
  sketch plain;                       // complete, without a legend, but for what is not drawn
  std::vector<std::size_t> in_plain;  // of each gadget: its number there
  std::vector<std::string> lines;     // the text
  int top = 0;                        // how many of them precede the picture
  std::map<int, std::size_t> about;   // lines of the legend, counted from 1, and their gadgets
};

static std::string row_text(const std::vector<std::string>& cells) {
  std::string text;
  for (const std::string& cell : cells) text += cell;
  return text;
}

static bool has_hot_key(const gadget& it) { return it.label.find('_') != std::string::npos; }

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
  read_picture(from, seen, made.plain,
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

// The legend.

static bool needs_quotes(std::string_view text, std::string_view special) {
  return text.empty() || text[0] == '"' || text[0] == ' ' || text.back() == ' ' ||
         text.find_first_of(special) != std::string_view::npos;
}

static std::string quoted(const std::string& text, std::string_view special) {
  return needs_quotes(text, special) ? "\"" + text + "\"" : text;
}

static std::string value_of(const std::string& text) { return quoted(text, ","); }

static bool is_of_screen(std::string_view key) {
  return key == "screen" || key == "order" || key == "active" || key == "default" || key == "{a}" ||
         key == "{b}" || key == "none";
}

// How the legend calls a gadget: by its key, and by its number where several have it.
static std::string reference(const draft& made, std::size_t wanted) {
  const std::size_t index = made.in_plain[wanted];
  const std::string& key = made.plain.gadgets[index].key;
  int number = 0, count = 0;
  for (std::size_t i = 0; i < made.plain.gadgets.size(); i++) {
    if (made.plain.gadgets[i].key != key) continue;
    count++;
    if (i == index) number = count;
  }
  const std::string name = quoted(key, ",:=\"#");
  return count > 1 || is_of_screen(key) ? name + "#" + std::to_string(number) : name;
}

static void add(std::vector<std::string>& said, bool differs, const std::string& what) {
  if (differs) said.push_back(what);
}

static void add_list(std::vector<std::string>& said, const gadget& it) {
  for (const std::string& entry : it.entries)
    said.push_back((&entry == &it.entries.front() ? "list " : "") + value_of(entry));
}

// What has to be said of a gadget that looks as `plain` does by itself.
static std::vector<std::string> properties(const gadget& it, const gadget& plain) {
  std::vector<std::string> said;
  add(said, it.variable != plain.variable, "variable " + value_of(it.variable));
  add(said, it.type != plain.type, it.type);
  add(said, it.required, "required");
  add(said, it.most != plain.most, "most " + std::to_string(it.most));
  add(said, it.password, "password");
  add(said, it.value != plain.value && !it.password, "value " + value_of(it.value));
  add(said, it.attached != plain.attached, "shows " + it.attached);
  add(said, it.action != plain.action, "action " + value_of(it.action));
  add(said, it.checks != plain.checks, it.checks.value_or(false) ? "check" : "no check");
  add(said, it.file != plain.file, "file " + value_of(it.file));
  add(said, it.highlight != plain.highlight, "highlight " + value_of(it.highlight));
  std::string start = it.start;
  std::replace(start.begin(), start.end(), ',', ' ');
  add(said, it.start != plain.start, "start " + value_of(start));
  add(said, it.deferred, "defer");
  add_list(said, it);
  if (said.empty() && it.what == kind::button && !has_hot_key(it)) said.push_back("button");
  return said;
}

static std::string joined(const std::vector<std::string>& parts) {
  std::string text;
  for (const std::string& part : parts) text += (text.empty() ? "" : ", ") + part;
  return text;
}

static void add_line(draft& made, const std::string& line) { made.lines.push_back(line); }

// The first line with its key, the others behind it.
static void write_verbatim(draft& made, std::size_t index) {
  const std::string& key = made.plain.gadgets[made.in_plain[index]].key;
  std::string mark = quoted(key, ":=\"#") + " = ";
  for (const std::string& line : made.wanted.drawn.gadgets[index].lines) {
    add_line(made, mark + line);
    mark = "= ";
  }
}

static void write_gadget(draft& made, std::size_t index) {
  const gadget& it = made.wanted.drawn.gadgets[index];
  if (it.verbatim) return write_verbatim(made, index);
  const std::vector<std::string> said = properties(it, made.plain.gadgets[made.in_plain[index]]);
  if (said.empty()) return;
  add_line(made, reference(made, index) + ": " + joined(said));
  made.about[static_cast<int>(made.lines.size())] = index;
}

// The screen's own properties. A screen without a name of its own has the one that is left empty.
static void write_screen(draft& made) {
  const sketch &wanted = made.wanted.drawn, &plain = made.plain;
  std::vector<std::string> said;
  add(said, !wanted.name.empty(), "name " + value_of(wanted.name));
  add(said, !is_edge_title(wanted), "title " + value_of(wanted.title));
  const bool full = plain.window.starts_with("fulls");
  add(said, full && wanted.window.starts_with("pop"), "pop");
  add(said, wanted.window.ends_with(":overlay"), "overlay");
  add(said, wanted.window.ends_with(":clear") && !plain.window.ends_with(":clear"), "clear");
  add(said,
      plain.window.ends_with(":clear") && wanted.window.find(':') == wanted.window.rfind(':') &&
          !wanted.window.ends_with(":clear") && !wanted.window.ends_with(":overlay"),
      "keep");
  if (!said.empty()) add_line(made, "screen: " + joined(said));
}

// What the defaults give, with what the legend says of the gadgets, and of the one that is active.
static sketch with_legend(const draft& made, std::optional<std::size_t> active) {
  sketch said = made.plain;
  for (std::size_t i = 0; i < made.in_plain.size(); i++) {
    const std::string key = said.gadgets[made.in_plain[i]].key;
    const place drawn = said.gadgets[made.in_plain[i]].drawn;
    said.gadgets[made.in_plain[i]] = made.wanted.drawn.gadgets[i];
    said.gadgets[made.in_plain[i]].key = key;
    said.gadgets[made.in_plain[i]].drawn = drawn;
  }
  said.order.clear();
  said.active = active;
  said.default_action.reset();
  said.default_checks = false;
  source nowhere;
  complete(nowhere, said);
  return said;
}

static void write_default(draft& made, const sketch& usual) {
  const sketch& wanted = made.wanted.drawn;
  // A screen without a default has this action, without a check.
  if (wanted.default_action == usual.default_action.value_or("default") &&
      wanted.default_checks == usual.default_checks)
    return;
  add_line(made, "default: " + value_of(*wanted.default_action) +
                     (wanted.default_checks ? ", check" : ""));
}

static std::vector<std::size_t> translated(const draft& made,
                                           const std::vector<std::size_t>& order) {
  std::vector<std::size_t> result;
  result.reserve(order.size());
  for (const std::size_t i : order) result.push_back(made.in_plain[i]);
  return result;
}

static std::size_t active_in_plain(const draft& made) {
  const std::size_t active = *made.wanted.drawn.active;
  return active == no_gadget ? no_gadget : made.in_plain[active];
}

// Returns whether the legend has to say which gadget is active.
static bool write_active(draft& made, const sketch& usual) {
  const std::optional<std::size_t> wanted = made.wanted.drawn.active;
  if (!wanted || made.wanted.drawn.gadgets.empty()) return false;
  if (usual.active == active_in_plain(made)) return false;
  add_line(made, "active: " + (wanted == no_gadget ? "none" : reference(made, *wanted)));
  return true;
}

static void write_order(draft& made, const sketch& usual) {
  const std::vector<std::size_t>& wanted = made.wanted.drawn.order;
  if (translated(made, wanted) == usual.order) return;
  std::vector<std::string> keys;
  keys.reserve(wanted.size());
  for (const std::size_t i : wanted) keys.push_back(reference(made, i));
  add_line(made, "order: " + joined(keys));
}

static void write_attached(draft& made) {
  for (const read_attached& it : made.wanted.attached) {
    for (const std::string& line : it.lines) {
      if (it.verbatim) break;
      const std::string shown = attached_line(line);
      add_line(made, "{" + it.letter + "}: " + shown.substr(0, shown.find_last_not_of(' ') + 1));
    }
  }
}

// What is not drawn and no gadget.

static void write_block(draft& made, const std::vector<std::string>& lines) {
  for (const std::string& line : lines)
    add_line(made, (&line == &lines.front() ? "= " : "") + line);
}

// The texts of a block that are not drawn, with empty lines for the others.
static void write_texts(draft& made, int block) {
  std::vector<std::string> lines = {"text:"};
  for (const read_text& it : made.wanted.texts) {
    if (it.block != block || !it.verbatim) continue;
    lines.resize(static_cast<std::size_t>(it.run.y - 1));  // the first one stands in row 2
    lines.push_back(it.line);
  }
  if (lines.size() == 1) return;
  lines.push_back("endtext:");
  write_block(made, lines);
}

static void write_lines(draft& made) {
  for (const std::string& line : made.wanted.drawn.lines) write_block(made, {line});
  for (const read_box& it : made.wanted.boxes)
    if (it.verbatim) write_block(made, {it.line});
  const std::vector<std::vector<std::string>>& blocks = made.wanted.blocks;
  for (std::size_t i = 0; i < blocks.size(); i++) {
    if (made.wanted.whole_blocks) {
      write_block(made, blocks[i]);
    } else {
      write_texts(made, static_cast<int>(i));
    }
  }
  for (const read_attached& it : made.wanted.attached)
    if (it.verbatim) write_block(made, it.block);
}

// The whole.

// Gadgets in reading order, as the picture has them.
static std::vector<std::size_t> by_rows(const sketch& drawn) {
  std::vector<std::size_t> order(drawn.gadgets.size());
  for (std::size_t i = 0; i < order.size(); i++) order[i] = i;
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    const gadget &one = drawn.gadgets[a], &two = drawn.gadgets[b];
    if (one.verbatim || two.verbatim) return !one.verbatim && two.verbatim;
    return one.cells.y != two.cells.y ? one.cells.y < two.cells.y : one.cells.x < two.cells.x;
  });
  return order;
}

static void write_legend(draft& made) {
  const sketch usual = with_legend(made, {});
  add_line(made, "");
  write_screen(made);
  for (const std::size_t i : by_rows(made.wanted.drawn)) write_gadget(made, i);
  write_attached(made);
  write_default(made, usual);
  const bool says_active = write_active(made, usual);
  write_order(made, says_active ? with_legend(made, active_in_plain(made)) : usual);
  write_lines(made);
  if (made.lines.back().empty()) made.lines.pop_back();
}

// A draft of what is not verbatim. Returns false when more has to become so.
static bool write_draft(const read_form& form, draft& made) {
  made.wanted = form;
  const grid cells = paint(made.wanted);
  made.lines = form.drawn.comments;
  if (!made.lines.empty()) add_line(made, "");
  made.top = static_cast<int>(made.lines.size());
  for (const auto& row : cells) add_line(made, row_text(row));
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
