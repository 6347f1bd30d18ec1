// sketch/form_reader: each reference gets itself as its value, so that the loader's records show
// it.

#include "tools/sketch/form_reader.h"

#include "screens/directives.h"
#include "screens/loader.h"
#include "screens/model.h"
#include "screens/reader.h"
#include "tools/sketch/picture.h"
#include "tools/sketch/screen_file.h"
#include "tools/sketch/source.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace scrim {

static void keep_references(const std::vector<std::string>& lines) {
  for (const std::string& line : lines) {
    for (std::size_t at = 0; (at = line.find("${", at)) != std::string::npos; at++) {
      const std::size_t end = std::min(line.find('}', at), line.size());
      const std::string name = line.substr(at + 2, end - at - 2);
      if (!name.empty()) setenv(name.c_str(), line.substr(at, end + 1 - at).c_str(), 1);
    }
  }
}

// Item n of the line in cbuf, counted from 1 behind the keyword.
static std::string item(int n) {
  const char* at = first_item(cbuf);
  for (; n > 1; n--) next_item(at);
  return std::string(next_item(at));
}

static std::string rest_of_line() {
  const char* rest = first_item(cbuf);
  return rest ? rest : "";
}

static std::string_view keyword_of(int row) { return row == -1 ? "" : file_funcs[row]; }

// The record as a gadget. `line` is as it is written.

static std::string type_name(int dbtype) {
  switch (dbtype & DBT_TYPEMASK) {
    case DBT_CHAR:
      return "CHAR";
    case DBT_VARCHAR2:
      return "VARCHAR2";
    case DBT_NUMBER:
      return "NUMBER";
    case DBT_DATE:
      return "DATE";
    default:
      return "";
  }
}

static void take_button(gadget& it, const gadget_list& record) {
  it.what = kind::button;
  const std::string label = item(std::string_view(cbuf).find("pbutton:") <= 1 ? 2 : 1);
  const bool bracketed = !label.empty() && (label[0] == '(' || label[0] == '<');
  it.verbatim = label.empty() || label[0] == ' ' || has_other(label);
  it.label = bracketed ? label : "(" + label;
  it.key = it.label.substr(std::min(it.label.find_first_not_of(' ', 1), it.label.size()));
  std::erase(it.key, '_');
  it.action = record.op;
  it.checks = (record.dbtype & DBT_VALIDATE) != 0;
}

static void take_field(gadget& it, const gadget_list& record) {
  it.what = kind::field;
  it.value = record.text;
  it.most = record.m;
  it.type = type_name(record.dbtype);
  it.required = (record.dbtype & DBT_REQUIRED) != 0;
  it.password = (record.flags & GF_PASSWORD) != 0;
}

static void take_checkbox(gadget& it, const gadget_list& record) {
  it.what = kind_of(record) == GF_CHECKBOX ? kind::checkbox : kind::exclusive;
  it.value = record.text;
  if (record.tlink) it.attached = record.tlink == &atext ? "a" : "b";
}

static void take_list(gadget& it, const gadget_list& record) {
  it.what = kind::list;
  it.value = item(2);
  for (char** entry = record.list + poplist_entries; *entry; entry++) it.entries.push_back(*entry);
  std::size_t width = it.variable.size();
  for (const std::string& entry : it.entries) width = std::max(width, entry.size());
  if (it.value.find("${") == std::string::npos) width = std::max(width, it.value.size());
  it.cells.w = static_cast<int>(width) + 2;
}

static void take_window(gadget& it, const gadget_list& record) {
  it.what = kind::window;
  it.cells.h = record.h;
  it.file = item(2);
  it.deferred = swdefer != 0;
  if (it.deferred) it.lines.insert(it.lines.begin(), "swdefer");
}

static gadget as_gadget(const gadget_list& record, const std::string& line, int line_at) {
  const per_screen& screen = s_screen[curscreen];
  gadget it;
  it.cells = {record.x - screen.windx, record.y - screen.windy, record.w};
  it.drawn = {line_at, 1};
  it.lines = {line};
  switch (kind_of(record)) {
    case GF_BUTTON:
      take_button(it, record);
      return it;
    case GF_POPLIST:
      it.variable = record.op;
      take_list(it, record);
      return it;
    case GF_SWIN:
      take_window(it, record);
      break;
    case GF_ETEXT:
      take_field(it, record);
      break;
    default:
      take_checkbox(it, record);
      break;
  }
  it.variable = record.op;
  return it;
}

// Lines.

// A text is painted over what is declared before it, with its blanks too.
static void check_covering(source& from, const read_form& form, const read_text& text) {
  for (const gadget& it : form.drawn.gadgets)
    if (it.what != kind::window && it.cells.y == text.run.y && text.x < it.cells.x + it.cells.w &&
        text.end > it.cells.x)
      report(
          from, text.run.drawn,
          {"a sketch cannot hold a text over the gadget of line ", std::to_string(it.drawn.line)});
}

static std::vector<std::string> lines_between(const source& from, int first, int last) {
  return {from.lines.begin() + (first - 1), from.lines.begin() + last};
}

static void take_text_lines(source& from, read_form& form, const gadget_list* record, int first) {
  const per_screen& screen = s_screen[curscreen];
  const auto block = static_cast<int>(form.blocks.size());
  form.blocks.push_back(lines_between(from, first - 1, line_number));
  if (record && form.texts.empty() && form.first_text.empty()) form.first_text = record->text;
  for (int line = first; record; record = record->next, line++) {
    const std::string text = record->text;
    const std::size_t indent = text.find_first_not_of(' ');
    if (indent == std::string::npos) continue;
    const int left = record->x - screen.windx, x = left + static_cast<int>(indent);
    const std::string& written = from.lines[static_cast<std::size_t>(line - 1)];
    read_text it = {{x,
                     record->y - screen.windy,
                     text.substr(indent, text.find_last_not_of(' ') + 1 - indent),
                     {line, 1}},
                    block,
                    x,
                    left + static_cast<int>(text.size()),
                    written};
    it.verbatim = has_other(text) && written.find('\\') != std::string::npos;
    check_covering(from, form, it);
    form.texts.push_back(it);
  }
}

static void take_attached(const source& from, read_form& form, const std::string& letter,
                          int first) {
  const per_screen& screen = s_screen[curscreen];
  const save_text* record = letter == "a" ? atext : btext;
  if (!record) return;
  read_attached it = {letter, {record->x - screen.windx, record->y - screen.windy, 0}, {}, {}};
  it.lines = split_lines(record->text);
  it.block = lines_between(from, first, line_number);
  form.attached.push_back(it);
}

// A window's highlight and place, in this order; in any other its lines stay as they are.
static void take_window_line(read_form& form, std::string_view keyword, const std::string& line) {
  std::vector<gadget>& all = form.drawn.gadgets;
  const auto last = std::find_if(all.rbegin(), all.rend(),
                                 [](const gadget& it) { return it.what == kind::window; });
  if (last == all.rend()) return;
  last->lines.push_back(line);
  const std::string said = rest_of_line();
  if (keyword == "swhigh") {
    if (!last->highlight.empty() || !last->start.empty()) last->verbatim = true;
    last->highlight = said;
  } else {
    if (!last->start.empty()) last->verbatim = true;
    last->start = said;
  }
  if (said.empty()) last->verbatim = true;
}

static void take_screen_line(source& from, read_form& form, std::string_view keyword,
                             const std::string& line, int number) {
  if (keyword == "fulls" || keyword == "pop:") {
    if (!form.drawn.window.empty())
      report(from, {number, 1}, {"a sketch cannot hold a second window"});
    if (s_screen[curscreen].gadget_lp)
      report(from, {number, 1}, {"a sketch cannot hold a gadget that precedes the window"});
    form.drawn.window = line;
    form.drawn.corner = {number, 1};
  }
  if (keyword == "table:") form.drawn.lines.push_back(line);
  if (keyword == "box:") {
    int box[most_numbers];
    const char* at = nullptr;
    first_numbers(at, box);
    form.boxes.push_back({{box[0], box[1], box[2], box[3]}, line});
  }
}

// A scroll window's file need not be there.
static bool is_missing_file(std::string_view keyword) {
  return refused.status != 0 && keyword.ends_with("swin");
}

static void take_line(source& from, read_form& form) {
  const int row = directive_row(cbuf), number = line_number;
  const std::string_view keyword = keyword_of(row);
  const std::string line = from.lines[static_cast<std::size_t>(number - 1)];
  const gadget_list* last = s_screen[curscreen].blp;
  take_screen_line(from, form, keyword, line, number);
  if (keyword == "swhigh" || keyword == "swpos") take_window_line(form, keyword, line);
  const bool fixed = line.find('$') >= line.find(':', line.find(':') + 1);
  run_directive();
  if (is_missing_file(keyword)) refused.status = 0;
  const gadget_list* made = last ? last->next : s_screen[curscreen].gadget_lp;
  if (keyword == "text:") {
    take_text_lines(from, form, made, number + 1);
  } else if (keyword == "atext" || keyword == "btext") {
    take_attached(from, form, std::string(keyword.substr(0, 1)), number);
  } else if (made) {
    form.drawn.gadgets.push_back(as_gadget(*made, line, number));
    if (!fixed && *file_numbers[row]) form.drawn.gadgets.back().verbatim = true;
  }
}

static void take_window_size(source& from, sketch& drawn) {
  const per_screen& screen = s_screen[curscreen];
  drawn.cells = {0, 0, screen.windw, screen.windh};
  drawn.name = screen.screenname;
  drawn.title = screen.screentitle;
  if (drawn.window.empty()) {
    report(from, {1, 1}, {"a screen without a window cannot be drawn"});
  } else if (screen.windw < 3 || screen.windh < 2 || screen.windw > most_columns ||
             screen.windh > most_rows) {
    report(from, drawn.corner, {"a window of this size cannot be drawn"});
  }
  if (screen.screentype & ST_POP)
    drawn.window = "pop:" + std::to_string(screen.windw) + "," + std::to_string(screen.windh);
  if (screen.screentype & ST_FULLS) drawn.window = "fulls";
  if (screen.screentype & ST_CLEAR) drawn.window += ":clear";
  if (screen.screentype & ST_OVERLAY) drawn.window += ":overlay";
}

// The numbers that gadgets have without the texts among them.
static void take_order(sketch& drawn) {
  const per_screen& screen = s_screen[curscreen];
  std::size_t count = 0;
  if (screen.gadget_lp) drawn.active = no_gadget;
  for (const gadget_list* it = screen.gadget_lp; it; it = it->next) {
    if (kind_of(*it) == GF_TEXT) continue;
    if (it->gadgetid == screen.activeg) drawn.active = count;
    drawn.order.push_back(count++);
  }
}

static void take_default(sketch& drawn) {
  const per_screen& screen = s_screen[curscreen];
  drawn.default_action = screen.default_string;
  drawn.default_checks = (screen.screentype & ST_VALIDATE) != 0;
}

// The comments that a file begins with, but for the one that a sketch has left.
static void take_comments(const source& from, sketch& drawn) {
  for (const std::string& line : from.lines) {
    if (!line.starts_with('#')) return;
    if (!line.starts_with(origin_mark)) drawn.comments.push_back(line);
  }
}

static bool take_refusal(source& from) {
  if (refused.status == 0) return false;
  report(from, {std::max(line_number, 1), 1}, {refused.message});
  return true;
}

// The loader reads what has been read already: standard input cannot be read twice.
static bool open_lines(const source& from, std::string& text) {
  static char name[] = "sketch";
  make_table(name);
  curscreen = 0;
  for (const std::string& line : from.lines) text += line + "\n";
  sfp = fmemopen(text.data(), text.size(), "r");
  return sfp != nullptr;
}

bool read_screen(source& from, read_form& form) {
  std::string text;
  keep_references(from.lines);
  if (!open_lines(from, text)) return false;
  while (next_directive() && !take_refusal(from)) {
    take_line(from, form);
    if (take_refusal(from)) break;
  }
  if (from.mistakes.empty()) take_refusal(from);
  close_screen();
  take_comments(from, form.drawn);
  take_window_size(from, form.drawn);
  take_order(form.drawn);
  take_default(form.drawn);
  return true;
}

}  // namespace scrim
