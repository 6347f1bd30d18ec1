// sketch/legend_text: what the picture and the defaults say is not said again.

#include "tools/sketch/legend_text.h"

#include "tools/sketch/defaults.h"
#include "tools/sketch/painter.h"
#include "tools/sketch/source.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scrim {

bool has_hot_key(const gadget& it) { return it.label.find('_') != std::string::npos; }

static void add_line(draft& made, const std::string& line) { made.lines.push_back(line); }

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

static std::string with_commas(const std::vector<std::string>& parts) {
  std::string text;
  for (const std::string& part : parts) text += (text.empty() ? "" : ", ") + part;
  return text;
}

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
  add_line(made, reference(made, index) + ": " + with_commas(said));
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
  if (!said.empty()) add_line(made, "screen: " + with_commas(said));
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
  add_line(made, "order: " + with_commas(keys));
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

void write_legend(draft& made) {
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

}  // namespace scrim
