// tools/check/main: scrim-check, which looks for faults in screen files.

#include "common/program.h"
#include "tools/check/findings.h"
#include "tools/check/lists.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <new>
#include <string_view>
#include <vector>

#include <unistd.h>

namespace scrim {

static int show_usage() {
  complain({"Usage: scrim-check [-qW] file[,file...] ..."});
  return wrong_call;
}

static bool names_a_file(std::string_view list) {
  return list.find_first_not_of(',') != std::string_view::npos;
}

struct options {
  bool quiet;   // prints no findings
  bool strict;  // takes notes for faults
};

static int check_lists(const std::vector<char*>& lists, const options& chosen) {
  bool complete = true;
  findings found;
  for (char* list : lists) complete = check_list(list, found) && complete;
  if (chosen.strict) found = notes_as_faults(found);
  if (!chosen.quiet) print_findings(found);
  if (!complete) return wrong_call;
  return has_fault(found) ? 1 : 0;
}

static int run(int argc, char** argv) {
  options chosen = {};
  opterr = 0;  // its own message shows the option as it was given, whatever that does to a terminal
  for (int option = 0; (option = getopt(argc, argv, "qW")) != -1;) {
    if (option == '?') return show_usage();
    (option == 'q' ? chosen.quiet : chosen.strict) = true;
  }
  const std::vector<char*> lists(argv + optind, argv + argc);
  if (lists.empty() || !std::all_of(lists.begin(), lists.end(), names_a_file)) return show_usage();
  return check_lists(lists, chosen);
}

}  // namespace scrim

int main(int argc, char** argv) {
  signal(SIGCHLD, SIG_DFL);  // a caller that ignores its children's ends must not hide ours
  try {
    return scrim::run(argc, argv);
  } catch (const std::bad_alloc&) {
    fputs("scrim-check: out of memory\n", stderr);
    return scrim::wrong_call;
  }
}
