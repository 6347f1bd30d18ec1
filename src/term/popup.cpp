// term/popup: the error pop-up, and the endings that it announces.

#include "term/popup.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "term/capabilities.h"
#include "term/drawing.h"
#include "term/keys.h"
#include "term/leaving.h"
#include "term/tty.h"

namespace scrim {

int error_pop(const char* s) {
  if (!ttym && open_terminal() != 0) {
    fprintf(stderr, "%s\n", s);
    return 0;
  }
  const int n = static_cast<int>(std::strlen(s));
  do_box_c(10, 10, 60, 5, 1);
  stand((56 - n) / 2 + 12, 12, s, 0, n);
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
