// screens/directives: the table of the screen file's directives.
// What a directive is called, who reads it and which numbers it begins with stand here and nowhere
// else: handlers and checks ask this table.

#include "screens/directives.h"

#include "common/program.h"
#include "common/text.h"
#include "screens/reader.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace scrim {

const char* const file_funcs[] = {
    "fulls",       //
    "button:",     //
    "text:",       //
    "title:",      //
    "table:",      //
    "name:",       //
    "pop:",        //
    "box:",        //
    "pbutton:",    //
    "dbutton:",    //
    "dpbutton:",   //
    "etext",       //
    "detext",      //
    "bdefault",    //
    "checkbox",    //
    "dcheckbox",   //
    "xcheckbox",   //
    "dxcheckbox",  //
    "atext",       //
    "btext",       //
    "swin",        //
    "dswin",       //
    "swhigh",      //
    "swdefer",     //
    "swpos",       //
    "poplist",     //
    "",
};

int (*const file_funcs_x[])() = {
    f_fulls,       //
    f_button,      //
    f_text,        //
    f_title,       //
    f_table,       //
    f_name,        //
    f_pop,         //
    f_box,         //
    f_pbutton,     //
    f_dbutton,     //
    f_dpbutton,    //
    f_etext,       //
    f_detext,      //
    f_bdefault,    //
    f_checkbox,    //
    f_dcheckbox,   //
    f_xcheckbox,   //
    f_dxcheckbox,  //
    f_atext,       //
    f_btext,       //
    f_swin,        //
    f_dswin,       //
    f_swhigh,      //
    f_swdefer,     //
    f_swpos,       //
    f_poplist,     //
    nullptr,
};

const char* const file_numbers[] = {
    "",             // fulls
    "",             // button
    "",             // text
    "",             // title
    "",             // table
    "",             // name
    "W,H",          // pop
    "X,Y,W,H",      // box
    "X,Y",          // pbutton
    "",             // dbutton
    "X,Y",          // dpbutton
    "X,Y,W/M",      // etext
    "X,Y,W/M",      // detext
    "",             // bdefault
    "X,Y",          // checkbox
    "X,Y",          // dcheckbox
    "X,Y",          // xcheckbox
    "X,Y",          // dxcheckbox
    "X,Y",          // atext
    "X,Y",          // btext
    "X,Y,W,H",      // swin
    "X,Y,W,H",      // dswin
    "LINE",         // swhigh
    "",             // swdefer
    "LINE,OFFSET",  // swpos
    "X,Y",          // poplist
    "",
};

static_assert(std::size(file_funcs) == directive_rows + 1);
static_assert(std::size(file_funcs_x) == directive_rows + 1);
static_assert(std::size(file_numbers) == directive_rows + 1);

int directive_row(std::string_view line) {
  for (int row = 0; *file_funcs[row]; row++)
    if (line.starts_with(file_funcs[row])) return row;
  return -1;
}

int number_separators(std::string_view names, char (&separators)[most_numbers]) {
  auto is_separator = [](char c) { return c == ',' || c == '/'; };
  *std::copy_if(names.begin(), names.end(), separators, is_separator) = 0;
  return names.empty() ? 0 : static_cast<int>(std::strlen(separators)) + 1;
}

int first_numbers(const char*& at, int (&numbers)[most_numbers], int limit) {
  char separators[most_numbers];
  number_separators(file_numbers[std::max(directive_row(cbuf), 0)], separators);
  at = first_item(cbuf);
  const int count = read_numbers(at ? at : "", separators, numbers, limit);
  next_item(at);
  return count;
}

}  // namespace scrim
