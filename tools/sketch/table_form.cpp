// sketch/table_form: labels in a column of their own and the fields behind them, two rows apart
// where there is room, then one, then in two columns.

#include "tools/sketch/table_form.h"

#include "common/text.h"
#include "screens/model.h"
#include "tools/check/item_rules.h"
#include "tools/sketch/defaults.h"
#include "tools/sketch/form_reader.h"
#include "tools/sketch/sketch_text.h"
#include "tools/sketch/source.h"
#include "tools/sketch/table.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace scrim {

// Types.

enum class length { fixed, declared, digits };  // of digits there are a sign and a point besides

// What a column's type becomes, by its first word. What is no number and no date is text. A truth
// value is text too: databases read '1' and '0', some 'true' and 'false', but not what a checkbox
// gives.
struct type_row {
  std::string_view words;  // each between blanks; empty: all others
  const char* type;
  length counts;
  int most;  // characters, unless a length is declared
};
static const type_row types[] = {
    {" varchar varchar2 nvarchar nvarchar2 ", "VARCHAR2", length::declared, longest_value},
    {" char character nchar bpchar native ", "CHAR", length::declared, 1},
    {" bool boolean ", "CHAR", length::fixed, 5},
    {" uuid ", "CHAR", length::fixed, 36},
    {" date datetime timestamp timestamptz ", "DATE", length::fixed, 19},
    {" time timetz ", "VARCHAR2", length::fixed, 15},
    {" int integer int4 mediumint ", "NUMBER", length::digits, 11},
    {" bigint int8 unsigned ", "NUMBER", length::digits, 20},
    {" smallint int2 tinyint ", "NUMBER", length::digits, 6},
    {" numeric decimal dec number ", "NUMBER", length::digits, 20},
    {" real float float4 float8 double money ", "NUMBER", length::fixed, 20},
    {" array ", "VARCHAR2", length::fixed, longest_value},
    {"", "VARCHAR2", length::declared, longest_value},
};

static const type_row& row_of(const std::string& type) {
  std::string word = " " + type.substr(0, type.find_first_of(" (")) + " ";
  if (type.find("varying") != std::string::npos) word = " varchar ";
  if (type.ends_with("[]")) word = " array ";
  const type_row* row = types;
  while (row->words.find(word) == std::string_view::npos && !row->words.empty()) row++;
  return *row;
}

// The characters that a value of the type has at most, or a field takes.
static int most_of(const std::string& type) {
  const type_row& row = row_of(type);
  const std::size_t size = type.find('(');
  int numbers[2] = {0, 0};
  if (size != std::string::npos) read_numbers(type.c_str() + size + 1, ",", numbers);
  if (row.counts == length::fixed || numbers[0] <= 0) return row.most;
  const int more = row.counts == length::digits ? 1 + (numbers[1] > 0 ? 1 : 0) : 0;
  return std::min(numbers[0] + more, longest_value);
}

// Names.

// A column's own name where a variable can have it, since the form's results are to name columns.
static std::string variable_for(const std::string& name) {
  std::string variable = name;
  for (char& c : variable) c = static_cast<char>(upper_case(c));
  if (!is_shell_name(name) || name.size() > longest_name) variable = variable_of(name);
  if (!is_shell_name(variable)) variable = ("COLUMN" + variable).substr(0, longest_name);
  return variable;
}

// A number makes those different that are taken.
static std::string unique_variable(const std::string& name, std::set<std::string>& taken) {
  const std::string variable = variable_for(name);
  std::string unique = variable;
  for (int n = 2; !taken.insert(unique).second; n++) {
    const std::string number = std::to_string(n);
    unique = variable.substr(0, longest_name - number.size()) + number;
  }
  return unique;
}

// Whether a character can stand in a label: it takes a column, and means nothing in a picture.
static bool is_for_label(const std::string& character) {
  static const std::string_view marks = ".,%/&-'";
  const char c = character[0];
  if (is_letter(c) || (c >= '0' && c <= '9') || marks.find(c) != marks.npos) return true;
  return (c & 0x80) != 0 && printable_length(character.data(), character.size()) > 0 &&
         cells_of("x" + character).size() > 1;
}

static bool is_capital(char c) { return is_letter(c) && upper_case(c) == c; }

// A name made readable, of `most` bytes at most: "credit_limit" and "CreditLimit" become "Credit
// limit".
static std::string label_of(const std::string& name, std::size_t most) {
  std::string label;
  bool ends_word = false, ends_small = false;
  for (const std::string& it : cells_of(name)) {
    if (it.empty()) continue;
    const bool good = is_for_label(it);
    ends_word = ends_word || !good || (ends_small && is_capital(it[0]));
    ends_small = is_letter(it[0]) && !is_capital(it[0]);
    if (!good) continue;
    const std::string before = ends_word && !label.empty() ? " " : "";
    if (label.size() + before.size() + it.size() > most) break;
    const int letter = label.empty() ? upper_case(it[0]) : lower_case(it[0]);
    label += before + (is_letter(letter) ? std::string(1, static_cast<char>(letter)) : it);
    ends_word = false;
  }
  return label;
}

// Layout.

// A way to place the fields in a full screen. All sizes are in cells.
struct layout {
  std::size_t side_by_side;  // fields in a row
  std::size_t most;          // fields in all
  int first_row, rows_apart;
  int buttons;        // rows from the last field down to them
  int width;          // from a label's first column to its field's last bracket
  std::size_t label;  // bytes
};
static const layout layouts[] = {
    {1, 8, 3, 2, 3, 73, 30},
    {1, 17, 2, 1, 2, 73, 30},
    {2, 34, 2, 1, 2, 35, 12},
};
static const int pitch = 38;  // from one label to the next in its row

static const layout& layout_for(std::size_t count) {
  const layout* it = layouts;
  while (it != std::end(layouts) - 1 && count > it->most) it++;
  return *it;
}

static bool can_begin_with(const std::string& value) {
  static const std::string_view special = "$:\\\"";
  return static_cast<int>(value.size()) <= longest_value &&
         std::all_of(value.begin(), value.end(), [](char c) {
           return c >= ' ' && c <= '~' && special.find(c) == special.npos;
         });
}

static bool is_required(const table_column& column) { return column.not_null && !column.computed; }

static gadget field_for(const table_column& column, const std::string& variable) {
  gadget made = {.what = kind::field, .key = variable, .variable = variable};
  made.type = row_of(column.type).type;
  made.most = most_of(column.type);
  made.required = is_required(column);
  if (made.type != "DATE" && can_begin_with(column.value)) made.value = column.value;
  return made;
}

static void add_text(read_form& form, int x, int y, int block, const std::string& text) {
  if (text.empty()) return;
  const auto indent = static_cast<std::size_t>(x - first_text_column);
  const auto width = static_cast<int>(text.size());
  form.texts.push_back({.run = {x, y, text, {}},
                        .block = block,
                        .x = x,
                        .end = x + width,
                        .line = std::string(indent, ' ') + text});
}

static void add_button(read_form& form, int x, int y, const std::string& label) {
  gadget made = {.what = kind::button, .cells = {x, y, 0, 1}, .key = label.substr(1)};
  made.label = "(" + label;
  made.cells.w = static_cast<int>(made.label.size());
  form.drawn.gadgets.push_back(made);
}

static void add_fields(read_form& form, const std::vector<table_column>& columns,
                       const layout& way) {
  std::set<std::string> taken = {"PATH", "IFS", "SCRIM", "RETN"};  // by the shell and scripts
  std::size_t longest = 0;
  for (const table_column& it : columns)
    longest = std::max(longest, label_of(it.name, way.label).size());
  const int indent = static_cast<int>(longest) + 3;  // two blanks and the bracket
  for (std::size_t i = 0; i < columns.size(); i++) {
    const int block = static_cast<int>(i % way.side_by_side);
    const int x = first_text_column + block * pitch;
    const int y = way.first_row + static_cast<int>(i / way.side_by_side) * way.rows_apart;
    gadget field = field_for(columns[i], unique_variable(columns[i].name, taken));
    // A lone X in brackets would be a checkbox.
    const int least = field.variable[0] == 'X' ? 2 : 1;
    field.cells = {x + indent, y, std::clamp(field.most, least, way.width - indent - 1), 1};
    add_text(form, x, y, block, label_of(columns[i].name, way.label));
    form.drawn.gadgets.push_back(field);
  }
}

static read_form form_for(const std::string& name, const std::vector<table_column>& columns) {
  read_form form;
  form.drawn.window = "fulls:clear";
  form.drawn.cells = {0, 0, 79, 23};
  form.drawn.title = label_of(name, 60);
  if (!form.drawn.title.empty()) form.drawn.title = " " + form.drawn.title + " ";
  const layout& way = layout_for(columns.size());
  add_fields(form, columns, way);
  const int row = form.drawn.gadgets.back().cells.y + way.buttons;
  add_button(form, 14, row, "_Save");
  add_button(form, 32, row, "_Cancel");
  source nowhere;
  complete(nowhere, form.drawn);
  return form;
}

// What is not drawn.

static void add_comments(std::vector<std::string>& lines,
                         const std::vector<table_column>& filled_in,
                         const std::vector<table_column>& left) {
  if (!filled_in.empty() || !left.empty()) lines.emplace_back();
  for (const table_column& it : filled_in)
    lines.push_back("# The database fills in " + variable_for(it.name) + ".");
  for (const table_column& it : left)
    lines.push_back("# No room for " + variable_for(it.name) + ": " + row_of(it.type).type +
                    (is_required(it) ? ", required" : "") + ", most " +
                    std::to_string(most_of(it.type)));
}

static std::vector<table_column> take_behind(std::vector<table_column>& columns, std::size_t most) {
  const auto end = columns.begin() + static_cast<std::ptrdiff_t>(std::min(most, columns.size()));
  std::vector<table_column> taken(end, columns.end());
  columns.erase(end, columns.end());
  return taken;
}

std::vector<std::string> table_form(source& from) {
  const table_description described = read_table(from);
  std::vector<table_column> columns = described.columns, filled_in;
  auto is_entered = [](const table_column& it) { return !it.filled_in; };
  const auto end = std::stable_partition(columns.begin(), columns.end(), is_entered);
  filled_in.assign(end, columns.end());
  columns.erase(end, columns.end());
  if (columns.empty()) {
    if (from.mistakes.empty()) report(from, {1, 1}, {"the table has no column that is entered"});
    return {};
  }
  const std::vector<table_column> left = take_behind(columns, std::end(layouts)[-1].most);
  std::vector<std::string> lines = sketch_text(form_for(described.name, columns));
  add_comments(lines, filled_in, left);
  if (!left.empty())
    report(from, left[0].where,
           {"no room from this column on: the last lines of the sketch name ",
            std::to_string(left.size()), " of ", std::to_string(described.columns.size()),
            " columns"});
  return lines;
}

}  // namespace scrim
