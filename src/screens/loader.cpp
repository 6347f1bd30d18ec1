// screens/loader: turns a list of screen files into the screen table.
// All files are loaded before the first screen is shown; a line that is refused ends the program.

#include "screens/loader.h"

#include "common/program.h"
#include "common/text.h"
#include "screens/directives.h"
#include "screens/model.h"
#include "screens/neighbours.h"
#include "screens/reader.h"
#include "term/endings.h"
#include "term/leaving.h"
#include "values/values.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace scrim {

static const std::size_t shown_of_line =
    1000;  // bytes of an unknown directive's line in its message

void run_directive() {
  const int row = directive_row(cbuf);
  if (row == -1) {
    refuse(exit_directive, {"Invalid Command: ", std::string_view(cbuf).substr(0, shown_of_line)});
  } else {
    file_funcs_x[row]();
  }
}

bool open_screen() { return open_screen_file(s_screen[curscreen].path); }

bool next_directive() {
  while (next_line()) {
    env_substitute(cbuf);
    copy_text(cbuf, tbuf);
    if (*cbuf && *cbuf != '#') return true;
  }
  return false;
}

static void choose_active(per_screen& screen) {
  screen.activeg = 0;
  screen.oldactive = -1;
  for (const gadget_list* gadget = screen.gadget_lp; gadget; gadget = gadget->next) {
    if (!(gadget->flags & GF_DEFAULT)) continue;
    screen.activeg = gadget->gadgetid;
    return;
  }
}

void close_screen() {
  if (sfp != stdin) fclose(sfp);
  choose_active(s_screen[curscreen]);
  link_neighbours(s_screen[curscreen]);
}

static void end_if_refused() {
  if (refused.status != 0) end_with(refused.message, refused.status);
}

int ParseScreenFile() {
  if (!open_screen()) return 1;
  while (next_directive()) {
    run_directive();
    end_if_refused();
  }
  end_if_refused();
  close_screen();
  return 0;
}

// Takes the next name off the list; null when there is none left. Empty names are skipped.
static char* next_name(char*& list) {
  list += std::strspn(list, ",");
  if (!*list) return nullptr;
  char* name = list;
  list += std::strcspn(list, ",");
  if (*list) *list++ = 0;
  return name;
}

static int count_names(const char* list) {
  int count = 0;
  for (list += std::strspn(list, ","); *list; list += std::strspn(list, ",")) {
    list += std::strcspn(list, ",");
    count++;
  }
  return count;
}

void make_table(char* fnames) {
  screens = fnames ? count_names(fnames) : 0;
  if (screens == 0) {
    complain({"ERROR: Missing screen file names"});
    exit(exit_file);
  }
  s_screen = static_cast<per_screen*>(calloc(static_cast<std::size_t>(screens), sizeof *s_screen));
  if (!s_screen) {
    complain({"ERROR: out of memory"});
    exit(exit_file);
  }
  for (int i = 0; i < screens; i++) {
    s_screen[i].path = next_name(fnames);
    copy_text(s_screen[i].filename, s_screen[i].path);
    copy_text(s_screen[i].default_string, "default");
  }
}

[[noreturn]] static void cannot_find(const char* path) {
  close_terminal();
  complain({"scrim: Can't find screen file ", path});
  exit(exit_usage);
}

void InitializeScreens(char* fnames) {
  make_table(fnames);
  for (curscreen = 0; curscreen < screens; curscreen++)
    if (ParseScreenFile() != 0) cannot_find(s_screen[curscreen].path);
  curscreen = 0;
  curscrn = s_screen;
  scrstack[0] = nullptr;
  scr = scrstack + 1;
  *scr = curscrn;
}

}  // namespace scrim
