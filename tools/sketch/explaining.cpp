// sketch/explaining: finds what each line of the legend is about, by its key.

#include "tools/sketch/explaining.h"

#include "screens/directives.h"
#include "tools/sketch/properties.h"
#include "tools/sketch/source.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace scrim {

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
  if (found == no_gadget && count > 0) {
    report(from, about.where,
           {"'", about.key, "' is there only ", std::to_string(count),
            count == 1 ? " time" : " times"});
  } else if (found == no_gadget) {
    report(from, about.where, {"nothing in the picture is called '", about.key, "'"});
  } else if (about.number == 0 && count > 1) {
    report(from, about.where,
           {"'", about.key, "' is there ", std::to_string(count), " times: say which one with '",
            about.key, "#1'"});
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
    if ((said.name == "name" || said.name == "title") && said.value.empty()) {
      report(from, said.where, {"'", said.name, "' has nothing behind it"});
    } else if (said.name == "name") {
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
      report(from, said.where, {"'", said.name, "' can't be said of this screen"});
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
    report(from, said[1].where, {"behind the action only 'check' can stand"});
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
  if (found == no_gadget) return;
  if (drawn.gadgets[found].verbatim)
    return report(from, about.where, {"nothing can be said of a line of the screen file"});
  apply_properties(from, drawn.gadgets[found], about);
}

// Lines without a key are placed with the texts; those with one declare a gadget.
static void add_lines(source& from, sketch& drawn, const entry& about) {
  if (directive_row(about.lines[0]) == -1)
    report(from, about.where, {"this is no line of a screen file"});
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
