// sketch/legend: a key, a colon, and properties between commas; or lines of the screen file.
// A table says which properties each kind of gadget has.

#include "tools/sketch/legend.h"

#include "common/text.h"
#include "screens/directives.h"
#include "tools/sketch/source.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace scrim {

static std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// Reading.

// Where a quoted text ends, behind its last quote; 0: `text` does not begin with a whole one. A
// quote ends it only in front of one of `ends`, of blanks and these, or at the end.
static std::size_t quoted_length(std::string_view text, std::string_view ends) {
  if (!text.starts_with('"')) return 0;
  for (std::size_t end = 1; (end = text.find('"', end)) != std::string_view::npos; end++) {
    const std::string_view behind = trimmed(text.substr(end + 1));
    if (behind.empty() || ends.find(behind[0]) != std::string_view::npos) return end + 1;
  }
  return 0;
}

static std::string unquoted(std::string_view text) {
  const std::size_t n = quoted_length(text, "");
  return std::string(n == text.size() && n > 0 ? text.substr(1, n - 2) : text);
}

// The parts of a text between its commas, each with its column in it.
static std::vector<property> split_items(std::string_view text, place where) {
  std::vector<property> items;
  for (std::size_t at = 0; at <= text.size();) {
    const std::size_t start = std::min(text.find_first_not_of(' ', at), text.size());
    const std::size_t word = std::min(text.find_first_of(" ,", start), text.size());
    const std::size_t value = std::min(text.find_first_not_of(' ', word), text.size());
    std::size_t end = start + quoted_length(text.substr(start), ",");
    if (end == start && word < text.size() && text[word] == ' ')
      end = value + quoted_length(text.substr(value), ",");
    end = std::min(text.find(',', end), text.size());
    const auto column = static_cast<int>(cells_of(text.substr(0, start)).size());
    const place item = {where.line, where.column + column};
    items.push_back({std::string(trimmed(text.substr(start, end - start))), "", item});
    at = end + 1;
  }
  return items;
}

// An item as a name and its value.
static property as_property(const property& item) {
  const std::size_t end = std::min(item.name.find(' '), item.name.size());
  const std::string_view value = trimmed(std::string_view(item.name).substr(end));
  return {item.name.substr(0, end), unquoted(value), item.where};
}

// Takes "#2" off a key.
static int take_number(std::string& key) {
  const std::size_t mark = key.rfind('#');
  int number = 0;
  if (mark == std::string::npos || mark == 0 || !read_number(key.c_str() + mark + 1, number))
    return 0;
  key.resize(mark);
  return number;
}

static entry keyed(std::string_view key, place where) {
  entry made = {std::string(trimmed(key)), 0, where, "", {}, {}};
  made.number = take_number(made.key);
  made.key = unquoted(made.key);
  return made;
}

static bool is_block(std::string_view line) {
  return line.starts_with("text:") || line.starts_with("atext") || line.starts_with("btext");
}

static std::string_view without_mark(std::string_view line) {
  line.remove_prefix(1);
  if (line.starts_with(' ')) line.remove_prefix(1);
  return line;
}

// Takes a line of the screen file, and those of its block. Lines about a scroll window belong to
// the one before. Moves `index` to the last line taken.
static void take_lines(const source& from, std::size_t& index, legend& read, entry made,
                       std::string_view line) {
  const bool adds = made.key.empty() && line.starts_with("sw") && line != "swdefer" &&
                    !read.entries.empty() && !read.entries.back().lines.empty();
  if (adds) {
    read.entries.back().lines.emplace_back(line);
    return;
  }
  made.lines.emplace_back(line);
  while (is_block(line) && index + 1 < from.lines.size()) {
    made.lines.push_back(from.lines[++index]);
    if (from.lines[index].starts_with("endtext:")) break;
  }
  read.entries.push_back(made);
}

// A line of the legend, its TABs as blanks. What is the screen file's stays as it is.
static std::string legend_line(const std::string& written) {
  std::string line = written;
  const std::size_t end = line.find_first_of("=");
  std::replace(line.begin(), line.begin() + static_cast<std::ptrdiff_t>(std::min(end, line.size())),
               '\t', ' ');
  return line;
}

static void take_entry(source& from, std::size_t& index, legend& read) {
  const std::string line = legend_line(from.lines[index]);
  const auto start = static_cast<int>(line.find_first_not_of(' '));
  const place where = {static_cast<int>(index) + 1, start + 1};
  const std::string_view text = std::string_view(line).substr(static_cast<std::size_t>(start));
  const std::size_t quoted = quoted_length(text, ":=#");
  const std::size_t end = text.find_first_of(":=", quoted);
  if (end == std::string_view::npos) {
    report(from, where, "this line has no ':' behind what it is about");
    return;
  }
  entry made = keyed(text.substr(0, end), where);
  const std::string_view rest = text.substr(end);
  if (rest[0] == '=') return take_lines(from, index, read, made, without_mark(rest));
  made.text = without_mark(rest);
  const std::string_view before = text.substr(0, text.size() - made.text.size());
  const place behind = {where.line, where.column + static_cast<int>(cells_of(before).size())};
  for (const property& item : split_items(made.text, behind))
    made.properties.push_back(as_property(item));
  read.entries.push_back(made);
}

legend read_legend(source& from, int first) {
  legend read;
  for (auto index = static_cast<std::size_t>(first); index < from.lines.size(); index++) {
    const std::string line = legend_line(from.lines[index]);
    const std::string_view text = trimmed(line);
    if (!text.empty() && text[0] != '#') take_entry(from, index, read);
  }
  return read;
}

bool names_button(const legend& read, std::string_view label) {
  auto is_about_button = [](const property& it) {
    return it.name == "action" || it.name == "check" || it.name == "no" || it.name == "button";
  };
  return std::any_of(read.entries.begin(), read.entries.end(), [&](const entry& it) {
    return it.key == label &&
           std::any_of(it.properties.begin(), it.properties.end(), is_about_button);
  });
}

// What can be said of gadgets.

bool is_type(std::string_view name) {
  static const std::string_view names[] = {"CHAR", "VARCHAR2", "NUMBER", "DATE"};
  return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

template <std::string gadget::*member>
static bool set_text(gadget& it, const std::string&, const std::string& value) {
  it.*member = value;
  return true;
}

template <bool gadget::*member>
static bool set_flag(gadget& it, const std::string&, const std::string&) {
  return it.*member = true;
}

static bool set_type(gadget& it, const std::string& name, const std::string&) {
  it.type = name;
  return true;
}

static bool set_most(gadget& it, const std::string&, const std::string& value) {
  return read_number(value.c_str(), it.most) && it.most > 0;
}

static bool add_entry(gadget& it, const std::string&, const std::string& value) {
  it.entries.push_back(value);
  return true;
}

static bool set_attached(gadget& it, const std::string&, const std::string& value) {
  it.attached = value;
  return value == "a" || value == "b";
}

static bool set_check(gadget& it, const std::string&, const std::string&) {
  it.checks = true;
  return true;
}

static bool set_no_check(gadget& it, const std::string&, const std::string& value) {
  it.checks = false;
  return value == "check";
}

static bool set_start(gadget& it, const std::string&, const std::string& value) {
  it.start = value;
  std::replace(it.start.begin(), it.start.end(), ' ', ',');
  return true;
}

static bool set_nothing(gadget&, const std::string&, const std::string&) { return true; }

// Takes what is said of a gadget. Returns whether the value is good.
using setter = bool (*)(gadget& it, const std::string& name, const std::string& value);

enum : unsigned {
  buttons = 1U << static_cast<unsigned>(kind::button),
  fields = 1U << static_cast<unsigned>(kind::field),
  boxes =
      1U << static_cast<unsigned>(kind::checkbox) | 1U << static_cast<unsigned>(kind::exclusive),
  lists = 1U << static_cast<unsigned>(kind::list),
  windows = 1U << static_cast<unsigned>(kind::window)
};

struct meaning {
  std::string_view name;
  unsigned kinds;  // that have it
  bool has_value;
  setter set;
};

static const meaning meanings[] = {
    {"variable", fields | boxes | lists | windows, true, set_text<&gadget::variable>},
    {"value", fields | boxes | lists, true, set_text<&gadget::value>},
    {"CHAR", fields, false, set_type},
    {"VARCHAR2", fields, false, set_type},
    {"NUMBER", fields, false, set_type},
    {"DATE", fields, false, set_type},
    {"required", fields, false, set_flag<&gadget::required>},
    {"password", fields, false, set_flag<&gadget::password>},
    {"most", fields, true, set_most},
    {"list", lists, true, add_entry},
    {"shows", boxes, true, set_attached},
    {"action", buttons, true, set_text<&gadget::action>},
    {"check", buttons, false, set_check},
    {"no", buttons, true, set_no_check},
    {"button", buttons, false, set_nothing},
    {"file", windows, true, set_text<&gadget::file>},
    {"highlight", windows, true, set_text<&gadget::highlight>},
    {"start", windows, true, set_start},
    {"defer", windows, false, set_flag<&gadget::deferred>},
};

static std::string in_capitals(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](char c) { return static_cast<char>(upper_case(c)); });
  return text;
}

static const meaning* meaning_of(const std::string& name) {
  for (const meaning& it : meanings)
    if (it.name == name || (is_type(it.name) && it.name == in_capitals(name))) return &it;
  return nullptr;
}

static bool has(const meaning& property, kind what) {
  return (property.kinds & 1U << static_cast<unsigned>(what)) != 0;
}

static void apply_property(source& from, gadget& it, const property& said) {
  const meaning* found = meaning_of(said.name);
  if (!found || !has(*found, it.what)) {
    report(from, said.where, "'" + said.name + "' can't be said of this");
  } else if (found->has_value && said.value.empty() && said.name != "variable") {
    report(from, said.where, "'" + said.name + "' has nothing behind it");
  } else if (!found->has_value && !said.value.empty()) {
    report(from, said.where, "a comma is missing behind '" + said.name + "'");
  } else if (!found->set(it, std::string(found->name), said.value)) {
    report(from, said.where, "'" + said.value + "' can't stand behind '" + said.name + "'");
  }
}

// Whether an item behind a list's entries is none of them.
static bool ends_list(const property& said) {
  return (said.name == "value" || said.name == "variable") && !said.value.empty();
}

// The entries of a list, behind the first one, are items of their own.
static void apply_properties(source& from, gadget& it, const entry& about) {
  const std::vector<property> items = split_items(about.text, about.where);
  bool in_list = false;
  for (std::size_t i = 0; i < about.properties.size(); i++) {
    const property& said = about.properties[i];
    in_list = in_list && !ends_list(said);
    if (in_list) {
      it.entries.push_back(unquoted(items[i].name));
    } else {
      apply_property(from, it, said);
      in_list = it.what == kind::list && said.name == "list";
    }
  }
}

// Finding what an entry is about.

// The gadget of this key, or of those that have the key the one with the number. Notes the mistake
// when there is none.
static std::size_t find_gadget(source& from, const sketch& drawn, const entry& about) {
  std::size_t found = no_gadget;
  int count = 0;
  for (std::size_t i = 0; i < drawn.gadgets.size(); i++) {
    if (drawn.gadgets[i].key != about.key) continue;
    count++;
    if (about.number == 0 || about.number == count) found = i;
  }
  if (found == no_gadget) {
    report(from, about.where, "nothing in the picture is called '" + about.key + "'");
  } else if (about.number == 0 && count > 1) {
    report(from, about.where,
           "'" + about.key + "' is there " + std::to_string(count) +
               " times: say which one with '" + about.key + "#1'");
    return no_gadget;
  }
  return found;
}

// The entries about the screen as a whole.

static void set_window(sketch& drawn, const std::string& option) {
  std::string directive = drawn.window.substr(0, drawn.window.find(":clear"));
  drawn.window = directive + (option.empty() ? "" : ":" + option);
}

static void apply_screen(source& from, sketch& drawn, const entry& about) {
  for (const property& said : about.properties) {
    const bool full = drawn.window.starts_with("fulls");
    if (said.name == "name") {
      drawn.name = said.value;
    } else if (said.name == "title") {
      drawn.title = said.value;
    } else if (said.name == "clear" || (said.name == "overlay" && full)) {
      set_window(drawn, said.name);
    } else if (said.name == "keep") {
      set_window(drawn, "");
    } else if (said.name == "pop" && full) {
      drawn.window = "pop:" + std::to_string(drawn.cells.w) + "," + std::to_string(drawn.cells.h);
    } else {
      report(from, said.where, "'" + said.name + "' can't be said of this screen");
    }
  }
}

static void apply_order(source& from, sketch& drawn, const entry& about) {
  drawn.order_said = about.where;
  for (const property& item : split_items(about.text, about.where)) {
    entry wanted = keyed(item.name, item.where);
    const std::size_t found = find_gadget(from, drawn, wanted);
    if (found != no_gadget) drawn.order.push_back(found);
  }
}

static void apply_active(source& from, sketch& drawn, const entry& about) {
  const entry wanted = keyed(about.text, about.where);
  drawn.active = wanted.key == "none" ? no_gadget : find_gadget(from, drawn, wanted);
}

static void apply_default(source& from, sketch& drawn, const entry& about) {
  const std::vector<property>& said = about.properties;
  drawn.default_action = unquoted(split_items(about.text, about.where)[0].name);
  drawn.default_checks = said.size() == 2 && said[1].name == "check";
  if (said.size() > 2 || (said.size() == 2 && said[1].name != "check"))
    report(from, said[1].where, "behind the action only 'check' can stand");
}

static void apply_attached(source&, sketch& drawn, const entry& about) {
  attached_lines& said = drawn.attached_said[about.key == "{a}" ? 0 : 1];
  if (said.lines.empty()) said.where = about.where;
  said.lines.push_back(about.text);
}

struct about_screen {
  std::string_view key;
  void (*apply)(source& from, sketch& drawn, const entry& about);
};
static const about_screen keys_of_screen[] = {
    {"screen", apply_screen},   {"order", apply_order},  {"active", apply_active},
    {"default", apply_default}, {"{a}", apply_attached}, {"{b}", apply_attached},
};

static const about_screen* screen_row(const entry& about) {
  for (const about_screen& it : keys_of_screen)
    if (it.key == about.key && about.number == 0) return &it;
  return nullptr;
}

static void apply_to_gadget(source& from, sketch& drawn, const entry& about) {
  const std::size_t found = find_gadget(from, drawn, about);
  if (found != no_gadget) apply_properties(from, drawn.gadgets[found], about);
}

// Lines without a key are placed with the texts; those with one declare a gadget.
static void add_lines(source& from, sketch& drawn, const entry& about) {
  if (directive_row(about.lines[0]) == -1)
    report(from, about.where, "this is no line of a screen file");
  if (about.key.empty()) {
    drawn.lines.insert(drawn.lines.end(), about.lines.begin(), about.lines.end());
    return;
  }
  gadget added = {.key = about.key, .drawn = about.where};
  added.verbatim = true;
  added.lines = about.lines;
  drawn.gadgets.push_back(added);
}

void apply_legend(source& from, const legend& read, sketch& drawn) {
  for (const entry& it : read.entries)
    if (!it.lines.empty()) add_lines(from, drawn, it);
  for (const entry& it : read.entries) {
    if (!it.lines.empty()) continue;
    if (const about_screen* row = screen_row(it)) {
      row->apply(from, drawn, it);
    } else {
      apply_to_gadget(from, drawn, it);
    }
  }
}

}  // namespace scrim
