// runtime/pick_list: a column of words, of which the user picks one.
// Nothing is kept between calls. What the list has drawn stays there: its caller repaints.
#pragma once

namespace scrim {

// Results of do_list other than the index of an entry.
enum { list_left_by_tab = -2, list_cancelled = -3 };

// The next entry after `from` that begins with the letter `key` as a capital, wrapping after the
// last; `from` itself when no other does.
int next_by_letter(char** entries, int from, int key);

// Shows the list of `largv` (column, row, then at least one entry) and lets the user pick.
// `f` is 1 for a frame around it, drawn at the given position with the entries inside; `csel` is
// the entry highlighted first. The list stays inside the current screen's window, or on the
// terminal where no screen is loaded; of one that is longer a part is shown, and the frame's right
// edge says with "^" and "v" that there is more above or below. Returns the index of the entry
// picked, or one of the codes above. What it draws stays on the screen.
int do_list(int f, int csel);

}  // namespace scrim
