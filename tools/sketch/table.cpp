// sketch/table: of a statement's tokens only those count that say something about columns; all else
// is skipped, so that it may be whatever a database knows.

#include "tools/sketch/table.h"

#include "common/text.h"
#include "tools/sketch/source.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace scrim {

static std::string in_small_letters(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](char c) { return static_cast<char>(lower_case(c)); });
  return text;
}

static bool is_one_of(std::string_view word, std::span<const std::string_view> all) {
  return std::find(all.begin(), all.end(), word) != all.end();
}

// Tokens.

struct token {
  std::string text;  // a quoted one without its quotes
  std::string word;  // what is not quoted, in small letters; a mark is a word of its own
  place where;
};
using tokens = std::span<const token>;

static bool is_in_word(char c) {
  return is_letter(c) || (c >= '0' && c <= '9') || c == '_' || c == '$' || (c & 0x80) != 0;
}

// Reads a token in quotes, of which two stand for one, or in brackets.
static token quoted_token(std::string_view text, std::size_t& at) {
  const char end = text[at] == '[' ? ']' : text[at];
  token made;
  for (at++; at < text.size(); at++) {
    const bool doubled = end != ']' && at + 1 < text.size() && text[at + 1] == end;
    if (text[at] == end && !doubled) break;
    if (text[at] == end) at++;
    made.text += text[at];
  }
  at = std::min(at + 1, text.size());
  return made;
}

// Reads a word, a number or a mark.
static token plain_token(std::string_view text, std::size_t& at) {
  const std::size_t start = at++;
  const bool number = text[start] >= '0' && text[start] <= '9';
  if (is_in_word(text[start]))
    while (at < text.size() && (is_in_word(text[at]) || (number && text[at] == '.'))) at++;
  const std::string word(text.substr(start, at - start));
  return {word, in_small_letters(word), {}};
}

// Where blanks and comments end that begin at `at`.
static std::size_t skip_blanks(std::string_view text, std::size_t at) {
  while (at < text.size()) {
    const bool line = text.substr(at, 2) == "--", block = text.substr(at, 2) == "/*";
    if (!line && !block && static_cast<unsigned char>(text[at]) > ' ') break;
    const std::size_t end = line ? text.find('\n', at) : block ? text.find("*/", at + 2) : at;
    at = end == std::string_view::npos ? text.size() : end + (block ? 2 : 1);
  }
  return at;
}

static void advance(place& where, std::string_view over) {
  for (const char c : over) {
    where.line += c == '\n' ? 1 : 0;
    where.column = c == '\n' ? 1 : where.column + 1;
  }
}

static std::vector<token> tokens_of(std::string_view text) {
  std::vector<token> all;
  place where = {1, 1};
  for (std::size_t at = 0, seen = 0; (at = skip_blanks(text, at)) < text.size();) {
    advance(where, text.substr(seen, at - seen));
    seen = at;
    const bool quoted = std::string_view("'\"`[").find(text[at]) != std::string_view::npos;
    all.push_back(quoted ? quoted_token(text, at) : plain_token(text, at));
    all.back().where = where;
  }
  return all;
}

static std::string_view word_at(tokens all, std::size_t at) {
  return at < all.size() ? std::string_view(all[at].word) : "";
}

// A column's default.

static bool is_constant(tokens said) {
  const std::string_view word = word_at(said, 0);
  return !said.empty() &&
         (word.empty() || word == "true" || word == "false" || (word[0] >= '0' && word[0] <= '9'));
}

// Takes what stands behind "default".
static void take_default(table_column& made, tokens said) {
  const std::string sign = word_at(said, 0) == "-" ? "-" : "";
  if (!sign.empty()) said = said.subspan(1);
  if (is_constant(said)) {
    made.value = sign + said[0].text;
  } else {
    made.computed = !said.empty() && word_at(said, 0) != "null";
  }
}

// A statement.

// Adds a token to the type, with a blank between words.
static void add_to_type(std::string& type, const token& it) {
  const bool mark = it.word == "(" || it.word == ")" || it.word == ",";
  if (!type.empty() && !mark && type.back() != '(' && type.back() != ',') type += ' ';
  type += in_small_letters(it.text);
}

// Behind the type; `said` begins with the word.
static void take_constraint(table_column& made, tokens said, std::string_view before) {
  const std::string_view word = said[0].word;
  if (word == "null" && before == "not") made.not_null = true;
  if (word == "default" && before != "set") take_default(made, said.subspan(1));
  if (word == "as" || word == "autoincrement" || word == "auto_increment") made.filled_in = true;
}

static table_column column_of(tokens item) {
  static const std::string_view constraints[] = {
      "constraint", "primary", "not",        "null",      "unique", "check",
      "default",    "collate", "references", "generated", "as",     "auto_increment"};
  table_column made = {.name = item[0].text, .type = "", .where = item[0].where};
  std::size_t i = 1;
  for (; i < item.size() && !is_one_of(item[i].word, constraints); i++)
    add_to_type(made.type, item[i]);
  for (int depth = 0; i < item.size(); i++) {
    if (item[i].word == ")") depth--;
    if (depth == 0) take_constraint(made, item.subspan(i), word_at(item, i - 1));
    if (item[i].word == "(") depth++;
  }
  return made;
}

static bool is_about_table(tokens item) {
  static const std::string_view first[] = {"constraint", "primary", "unique", "check", "foreign"};
  return is_one_of(item[0].word, first);
}

static std::size_t find_primary(tokens item) {
  const auto found =
      std::find_if(item.begin(), item.end(), [](const token& it) { return it.word == "primary"; });
  return static_cast<std::size_t>(found - item.begin());
}

// The columns of a primary key, in the parentheses behind these words. Behind a column's name other
// words may stand.
static std::set<std::string> key_columns(tokens item) {
  std::set<std::string> names;
  for (std::size_t i = find_primary(item) + 3; i < item.size(); i++)
    if (word_at(item, i - 1) == "(" || word_at(item, i - 1) == ",")
      names.insert(in_small_letters(item[i].text));
  return names;
}

// A statement that makes a table, taken apart.
struct statement {
  std::string name;
  place where;
  std::vector<tokens> items;
  tokens behind;  // what follows them
  bool whole = false;
};

// The index behind the parenthesis that opens the columns; 0: at `at` no such statement begins.
static std::size_t columns_from(tokens all, std::size_t at, std::string& name) {
  static const std::string_view kinds[] = {"temp", "temporary", "global", "local", "unlogged"};
  if (word_at(all, at++) != "create") return 0;
  while (is_one_of(word_at(all, at), kinds)) at++;
  if (word_at(all, at++) != "table") return 0;
  if (word_at(all, at) == "if") at += 3;
  while (word_at(all, at + 1) == ".") at += 2;
  if (word_at(all, at + 1) != "(") return 0;
  name = all[at].text;
  return at + 2;
}

static statement take_apart(tokens all) {
  statement read;
  std::size_t start = 0;
  int depth = 1;
  for (std::size_t i = 0; i < all.size() && depth > 0; i++) {
    const std::string_view word = all[i].word;
    if (word == "(") depth++;
    if (word == ")") depth--;
    if (depth > 1 || (depth == 1 && word != ",")) continue;
    if (i > start) read.items.push_back(all.subspan(start, i - start));
    start = i + 1;
  }
  read.whole = depth == 0;
  read.behind = all.subspan(std::min(start, all.size()));
  return read;
}

// Finds the next statement from `at` on, and moves `at` behind its columns. Returns false when
// there is none.
static bool find_statement(tokens all, std::size_t& at, statement& found) {
  for (; at < all.size(); at++) {
    std::string name;
    const std::size_t first = columns_from(all, at, name);
    if (first == 0) continue;
    found = take_apart(all.subspan(first));
    found.name = name;
    found.where = all[at].where;
    at = all.size() - found.behind.size();
    return true;
  }
  return false;
}

// Whether the table counts its rows by a key of this type: not one "WITHOUT ROWID".
static bool counts_rows(const statement& read) {
  const auto end = std::find_if(read.behind.begin(), read.behind.end(),
                                [](const token& it) { return it.word == ";"; });
  return std::none_of(read.behind.begin(), end,
                      [](const token& it) { return it.word == "without"; });
}

static void set_keys(const statement& read, const std::set<std::string>& keys,
                     table_description& made) {
  const bool counted = keys.size() == 1 && counts_rows(read);
  for (table_column& it : made.columns) {
    if (!keys.contains(in_small_letters(it.name))) continue;
    it.not_null = true;
    it.filled_in = it.filled_in || (counted && it.type == "integer");
  }
}

static table_description as_table(const statement& read) {
  table_description made = {read.name, {}};
  std::set<std::string> keys;
  for (const tokens item : read.items) {
    const bool about_table = is_about_table(item);
    if (!about_table) made.columns.push_back(column_of(item));
    if (about_table && find_primary(item) < item.size()) keys = key_columns(item);
    if (!about_table && find_primary(item) < item.size())
      keys.insert(in_small_letters(item[0].text));
  }
  set_keys(read, keys, made);
  return made;
}

static const char one_more[] = "one more table: the sketch is of the first one alone";

// Returns whether there is such a statement.
static bool read_statement(source& from, table_description& made) {
  std::string text;
  for (const std::string& line : from.lines) text += line + "\n";
  const std::vector<token> all = tokens_of(text);
  std::size_t at = 0;
  statement read, other;
  if (!find_statement(all, at, read)) return false;
  made = as_table(read);
  if (!read.whole) report(from, all.back().where, {"the table has no end: a ')' is missing"});
  if (find_statement(all, at, other)) report(from, other.where, {one_more});
  return true;
}

// A list of columns.

using cell_row = std::vector<std::string>;

// What psql draws lines with, in its line styles ascii and unicode: '-', '|', '+' where lines meet;
// 0: something else.
static char line_of(const std::string& cell) {
  if (cell == "-" || cell == "\u2500") return '-';
  if (cell == "|" || cell == "\u2502") return '|';
  return cell == "+" || (cell.size() == 3 && cell.starts_with("\xe2\x94")) ? '+' : '\0';
}

// Where the columns of a list end.
static std::vector<std::size_t> ends_of(const cell_row& rule) {
  std::vector<std::size_t> ends;
  for (std::size_t i = 0; i < rule.size(); i++) {
    const char line = line_of(rule[i]);
    if (line != '-' && line != '+') return {};
    if (line == '+' && i > 0) ends.push_back(i);
  }
  if (!rule.empty() && line_of(rule.back()) == '-') ends.push_back(rule.size());
  return ends;
}

static std::vector<std::string> fields_of(const cell_row& row, const std::vector<std::size_t>& ends,
                                          bool framed) {
  std::vector<std::string> fields;
  std::size_t i = framed ? 1 : 0;
  for (const std::size_t end : ends) {
    std::string text;
    for (; i < std::min(end, row.size()); i++) text += row[i];
    fields.emplace_back(without_blanks(text));
    i = end + 1;
  }
  return fields;
}

// The name in the heading, without its schema; empty: there is none. The words before and behind
// are in the user's language, and so are the quotes.
static std::string name_in(const std::string& heading) {
  static const std::string_view quotes[] = {"\"", "\u00ab", "\u00bb", "\u201e", "\u201c"};
  const cell_row cells = cells_of(heading);
  auto is_quote = [](const std::string& cell) { return is_one_of(cell, quotes); };
  const auto first = std::find_if(cells.begin(), cells.end(), is_quote);
  const auto last = std::find_if(cells.rbegin(), cells.rend(), is_quote).base();
  std::string name;
  for (auto it = first; last - it > 1; it++) name += it == first ? "" : *it;
  return std::string(without_blanks(name.substr(name.find('.') + 1)));
}

// Whether a constant is only given a type, and nothing is done with it.
static bool is_plain(tokens said) {
  return std::all_of(said.begin(), said.end(), [](const token& it) {
    return it.word.empty() || is_in_word(it.word[0]) || it.word == ":" || it.word == "(" ||
           it.word == ")";
  });
}

static table_column listed_column(const std::vector<std::string>& fields, int line) {
  table_column made = {.name = fields[0], .type = in_small_letters(fields[1]), .where = {line, 1}};
  made.not_null = !fields[3].empty();
  made.filled_in = fields[4].starts_with("generated ") || fields[4].starts_with("nextval(");
  const std::vector<token> value = tokens_of(fields[4]);
  take_default(made, value);
  if (is_plain(value)) return made;
  made.value.clear();
  made.computed = true;
  return made;
}

// Whether line `index` parts a table's headings from its columns; with a frame it is that above
// the headings.
static bool begins_list(const source& from, std::size_t index) {
  const cell_row rule = cells_of(from.lines[index]);
  const bool framed = !rule.empty() && line_of(rule[0]) == '+';
  const std::size_t heading = framed ? 1 : 2;
  return ends_of(rule).size() > 4 && index >= heading &&
         !name_in(from.lines[index - heading]).empty();
}

static void read_rows(const source& from, std::size_t& index, table_description& made) {
  const cell_row rule = cells_of(from.lines[index]);
  const bool framed = line_of(rule[0]) == '+';
  const std::vector<std::size_t> ends = ends_of(rule);
  made.name = name_in(from.lines[index - (framed ? 1 : 2)]);
  for (index += framed ? 3 : 1; index < from.lines.size(); index++) {
    const cell_row row = cells_of(from.lines[index]);
    if (row.size() <= ends[0] || line_of(row[ends[0]]) != '|') return;
    const std::vector<std::string> fields = fields_of(row, ends, framed);
    if (!fields[0].empty()) {
      made.columns.push_back(listed_column(fields, static_cast<int>(index) + 1));
    } else if (!made.columns.empty()) {
      // The default goes on here, so the line before has only a part of it.
      made.columns.back().computed = true;
      made.columns.back().value.clear();
    }
  }
}

static bool read_list(source& from, table_description& made) {
  bool found = false;
  for (std::size_t index = 0; index < from.lines.size(); index++) {
    if (!begins_list(from, index)) continue;
    if (found) {
      report(from, {static_cast<int>(index) + 1, 1}, {one_more});
      break;
    }
    found = true;
    read_rows(from, index, made);
  }
  return found;
}

table_description read_table(source& from) {
  table_description made;
  if (!read_statement(from, made) && !read_list(from, made))
    report(
        from, {1, 1},
        {"no table: this reads what sqlite3 prints for '.schema TABLE', or psql for '\\d TABLE'"});
  return made;
}

}  // namespace scrim
