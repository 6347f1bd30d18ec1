// screens/directives: the table of the screen file's directives, and their handlers, a source file
// for each family.
// A handler reads the substituted line in cbuf and acts on screen `curscreen`; numbers that are
// missing are 0, items longer than their array are cut. A line that a handler cannot take is
// refused (see refuse). The results mean nothing.
#pragma once

#include "common/text.h"
#include "screens/model.h"

#include <string_view>

namespace scrim {

constexpr int directive_rows = 26;

// Of each directive its keyword, its handler, and the names of its first item's numbers, which also
// tell what separates the numbers: "X,Y,W/M". Row n of one table belongs to row n of the others. An
// empty keyword, null and an empty text follow the last row. A keyword is recognised as the
// beginning of a line.
extern const char* const file_funcs[directive_rows + 1];
extern int (*const file_funcs_x[directive_rows + 1])();
extern const char* const file_numbers[directive_rows + 1];

// The row of a line's directive; -1: the line has none.
int directive_row(std::string_view line);

// What separates the numbers that `names` names, a NUL behind it: ",,/" of "X,Y,W/M". Returns how
// many numbers there are; 0: none.
constexpr int most_numbers = 4;
int number_separators(std::string_view names, char (&separators)[most_numbers]);

// Reads the numbers that the first item of the line in cbuf has by its directive's row, those
// missing as 0, each kept within +-limit, and moves `at` to the item behind. Returns how many stood
// there.
int first_numbers(const char*& at, int (&numbers)[most_numbers], int limit = coordinate_limit);

// layout.cpp: window, name and title, default action, frame, lines of text.
int f_fulls();
int f_text();
int f_title();
int f_table();
int f_name();
int f_pop();
int f_box();
int f_bdefault();

// buttons_and_fields.cpp
int f_button();
int f_pbutton();
int f_dbutton();
int f_dpbutton();
int f_etext();
int f_detext();

// Creates a button at column x, row y from the label, action and option at `cp` (null: none);
// `flag` is 0 or GF_DEFAULT.
int f_button_core(int x, int y, const char* cp, int flag);

// Creates an edit field from the line in cbuf; `flag` is 0 or GF_DEFAULT.
int f_etext_core(int flag);

// checkboxes.cpp
int f_checkbox();
int f_dcheckbox();
int f_xcheckbox();
int f_dxcheckbox();

// Creates a checkbox with these flags from the line in cbuf, and returns it; null: refused.
gadget_list* f_checkbox_core(int flags);

// attached_texts.cpp
int f_atext();
int f_btext();

// Reads a block of lines into a new record and returns it. `txt` is the slot's value: unless it is
// null the line is refused, and `txt` returned.
save_text* f_text_core(save_text* txt);

// windows_and_lists.cpp: scroll windows and pop lists.
int f_swin();
int f_dswin();
int f_swhigh();
int f_swdefer();
int f_swpos();
int f_poplist();

// Creates a scroll window from the line in cbuf, reads its file, and returns it. A file that cannot
// be read refuses the line; the window is there all the same, without data.
gadget_list* f_swin_core();

}  // namespace scrim
