// sketch/properties: a table says which properties each kind of gadget has.

#include "tools/sketch/properties.h"

#include "common/text.h"
#include "tools/sketch/source.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace scrim {

static bool is_type(std::string_view name) {
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
  return value.find_first_not_of("0123456789") == std::string::npos &&
         read_number(value.c_str(), it.most) && it.most > 0;
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
  return it.start.find(',') != std::string::npos || it.start.find("${") != std::string::npos;
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
    report(from, said.where, {"'", said.name, "' can't be said of this"});
  } else if (found->has_value && said.value.empty() && said.name != "variable") {
    report(from, said.where, {"'", said.name, "' has nothing behind it"});
  } else if (said.is_open) {
    report(from, said.where, {"a quote without its end"});
  } else if (!found->has_value && !said.value.empty()) {
    report(from, said.where, {"a comma is missing behind '", said.name, "'"});
  } else if (!found->set(it, std::string(found->name), said.value)) {
    report(from, said.where, {"'", said.value, "' can't stand behind '", said.name, "'"});
  }
}

// Whether an item behind a list's entries is none of them.
static bool ends_list(const property& said) {
  return (said.name == "value" || said.name == "variable") && !said.value.empty();
}

// The entries of a list, behind the first one, are items of their own.
void apply_properties(source& from, gadget& it, const entry& about) {
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

}  // namespace scrim
