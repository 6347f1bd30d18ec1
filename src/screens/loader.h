// screens/loader: turns a list of screen files into the screen table.
// The screens, their gadgets and the ways between them are complete when it returns.
#pragma once

namespace scrim {

// Loads the files whose paths `fnames` lists, separated by commas; cuts `fnames` apart in place.
// One file is one screen; the first one becomes current. No name, or no memory for the table, ends
// the program with status 253, a file that cannot be opened with status 1, each with a message on
// standard error; errors in a file end it with a message in the pop-up.
void InitializeScreens(char* fnames);

// Loads the file of screen `curscreen`. Returns 0, or 1 when it cannot be opened.
int ParseScreenFile();

// The directives' keywords, 26 of them and an empty one that ends them, and their handlers, each at
// its keyword's place. A keyword is recognised as the beginning of a line.
extern const char* const file_funcs[];
extern int (*const file_funcs_x[])();

}  // namespace scrim
