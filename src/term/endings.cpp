// term/endings: the error pop-up, the endings that it announces, and memory, whose lack is one.
// A message is always shown, on the terminal where there is one, else as a line of its own.

#include "term/endings.h"

#include "common/program.h"
#include "term/capabilities.h"
#include "term/drawing.h"
#include "term/keys.h"
#include "term/leaving.h"
#include "term/tty.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace scrim {

static const int popup_column = 10, popup_row = 10;
static const int popup_width = 60, popup_height = 5;
static const int popup_text = popup_width - 4;  // columns for a message, a margin left and right

int error_pop(const char* s) {
  if (!ttym && open_terminal() != 0) {
    complain({s});
    return 0;
  }
  const int n = static_cast<int>(std::strlen(s));
  do_box_c(popup_column, popup_row, popup_width, popup_height, 1);
  stand((popup_text - n) / 2 + popup_column + 2, popup_row + 2, s, 0, n);
  std::int16_t any = 0;
  read_key(any);
  return 0;
}

void end_with(const char* s, int status) {
  error_pop(s);
  win_exit(status);
}

void* allocate(std::size_t n, const char* complaint, int status) {
  void* memory = calloc(n, 1);
  if (!memory) end_with(complaint, status);
  return memory;
}

}  // namespace scrim
