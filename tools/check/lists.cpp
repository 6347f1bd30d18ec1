// tools/check/lists: a process for each list, whose findings come back through a pipe.

#include "tools/check/lists.h"

#include "common/program.h"
#include "screens/loader.h"
#include "screens/model.h"
#include "tools/check/form.h"
#include "tools/check/form_rules.h"
#include "tools/check/line_rules.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <string>
#include <string_view>

#include <sys/wait.h>
#include <unistd.h>
#if __has_include(<sys/prctl.h>)
#include <sys/prctl.h>
#endif

namespace scrim {

static bool load(form& checked, char* list) {
  make_table(list);
  for (curscreen = 0; curscreen < screens; curscreen++)
    if (!check_lines(checked)) return false;
  return true;
}

static void write_all(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t n = write(fd, bytes.data(), bytes.size());
    if (n < 0 && errno != EINTR) _exit(wrong_call);
    bytes.remove_prefix(n < 0 ? 0 : static_cast<std::size_t>(n));
  }
}

// When scrim-check is killed nobody reads the findings: its child ends with it where the system can
// do that.
static void end_after(pid_t parent) {
#ifdef PR_SET_PDEATHSIG
  prctl(PR_SET_PDEATHSIG, SIGTERM);
#endif
  if (getppid() != parent) _exit(wrong_call);
}

// The process of a list. Where a file cannot be opened its form is incomplete, and only the lines
// are checked.
[[noreturn]] static void run_check(char* list, int to) {
  form checked;
  const bool opened = load(checked, list);
  if (opened) check_form(checked);
  write_all(to, pack(checked.found));
  _exit(opened ? 0 : wrong_call);
}

static std::string read_to_end(int fd) {
  std::string bytes, piece(65536, 0);
  for (;;) {
    const ssize_t n = read(fd, piece.data(), piece.size());
    if (n == 0 || (n < 0 && errno != EINTR)) return bytes;
    if (n > 0) bytes.append(piece, 0, static_cast<std::size_t>(n));
  }
}

// The exit status of a child that has ended; -1: a signal has ended it.
static int status_of(pid_t child) {
  int status = 0;
  while (waitpid(child, &status, 0) == -1 && errno == EINTR) continue;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// Checks a list in a process of its own and returns its exit status; -1: there is none. What is
// found becomes `bytes`.
static int run_apart(char* list, std::string& bytes) {
  std::array<int, 2> ends;
  if (pipe(ends.data()) != 0) return -1;
  const pid_t parent = getpid(), child = fork();
  if (child == 0) {
    end_after(parent);
    close(ends[0]);
    run_check(list, ends[1]);
  }
  close(ends[1]);
  bytes = read_to_end(ends[0]);
  close(ends[0]);
  return child == -1 ? -1 : status_of(child);
}

bool check_list(char* list, findings& found) {
  std::string bytes;
  const int status = run_apart(list, bytes);
  if (status == 0 || status == wrong_call) {
    unpack(bytes, found);
  } else {
    complain({"scrim-check: ", list, ": the check ended without a result"});
  }
  return status == 0;
}

}  // namespace scrim
