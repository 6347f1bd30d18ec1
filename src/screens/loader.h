// screens/loader: turns a list of screen files into the screen table.
// The screens, their gadgets and the ways between them are complete when it returns.
#pragma once

namespace scrim {

// Loads the files whose paths `fnames` lists, separated by commas; cuts `fnames` apart in place.
// One file is one screen; the first one becomes current. No name, or no memory for the table, ends
// the program with status 253, a file that cannot be opened with status 1, each with a message on
// standard error; errors in a file end it with a message in the pop-up.
void InitializeScreens(char* fnames);

// Fills the screen table from `fnames`, as InitializeScreens does, but loads no file.
void make_table(char* fnames);

// Opens the file of screen `curscreen`. Returns false when it cannot be opened.
bool open_screen();

// Reads on to the next directive and substitutes its line into cbuf. Returns false at the end of
// the file, or when a line is refused.
bool next_directive();

// Runs the directive in cbuf; one that is unknown is refused.
void run_directive();

// Closes the file, and completes the screen: its active gadget, and where the cursor keys lead.
void close_screen();

// Loads the file of screen `curscreen`. Returns 0, or 1 when it cannot be opened.
int ParseScreenFile();

}  // namespace scrim
