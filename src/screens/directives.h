// screens/directives: the handlers of the screen file's directives, a source file for each family.
// Each reads the substituted line in cbuf and acts on screen `curscreen`; numbers that are missing
// are 0, items longer than their array are cut. A handler that meets an error ends the program
// with a message and a status. The results mean nothing.
#pragma once

#include "screens/model.h"

namespace scrim {

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

// Creates a checkbox, still without its flags, from the line in cbuf, and returns it.
gadget_list* f_checkbox_core();

// attached_texts.cpp
int f_atext();
int f_btext();

// Reads a block of lines into a new record and returns it; `txt`, the slot's value, must be null.
save_text* f_text_core(const save_text* txt);

// windows_and_lists.cpp: scroll windows and pop lists.
int f_swin();
int f_dswin();
int f_swhigh();
int f_swdefer();
int f_swpos();
int f_poplist();

// Creates a scroll window from the line in cbuf, reads its file, and returns it.
gadget_list* f_swin_core();

}  // namespace scrim
