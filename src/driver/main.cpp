// driver/main: one pass over the command line, one mode, one ending.
// An option acts when it is met; the words of a mode are looked at before the terminal is touched.

#include "common/program.h"
#include "common/text.h"
#include "driver/diagnostics.h"
#include "output/results.h"
#include "runtime/form_loop.h"
#include "runtime/pick_list.h"
#include "screens/loader.h"
#include "term/capabilities.h"
#include "term/drawing.h"
#include "term/endings.h"
#include "term/leaving.h"
#include "term/tty.h"
#include "values/values.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>

namespace scrim {

enum {
  mode_list = 0x01,
  mode_box = 0x02,
  mode_screens = 0x04,
  mode_error = 0x08,
  mode_position = 0x10,
  mode_progress = 0x20,
  mode_message = 0x40,
  mode_dump = 0x80
};

static int fn = 0;                  // mode bits gathered from the options
static int ret = -1;                // the pick list's result; -1: there is no result line
static int ex = 0;                  // exit status
static int x, y, curr, tot;         // numbers of -m, -t and -p
static bool numbers_given = false;  // the numbers of -m or -t were all there
static const char* msg = nullptr;   // the message of -m

[[noreturn]] static void usage() {
  complain({"Usage: ", progname, " [-lbtepmf]"});
  complain({"  Version ", version(), " "});
  fputs(
      "  -l x y list   - do a piclist at x,y\n"
      "  -b x y w h    - draw a box at x,y\n"
      "  -t y w c t    - display a progress bar at y, width w\n"
      "                  progress at c/t (current/total)\n"
      "  -e msg        - display an error popup window\n"
      "  -p x y        - position cursor to x,y\n"
      "  -m x y msg    - display msg at x,y\n"
      "  -f screenfile - process a screenfile\n",
      stderr);
  exit(exit_usage);
}

static FILE* open_file(const char* name, const char* how) {
  FILE* file = fopen(name, how);
  if (file) return file;
  complain({"Couldn't open: ", name});
  exit(exit_file);
}

static bool at_end(FILE* file) {
  const int c = getc(file);
  ungetc(c, file);
  return c == EOF;
}

// Reads a line of a defaults file into tbuf, up to its newline; of a longer one, a piece. Returns
// its bytes; 0 at the end of the file. A line may hold NULs: its value ends at the first.
static std::size_t read_piece(FILE* dfd) {
  std::size_t n = 0;
  for (int c = 0; n < sizeof tbuf - 1 && c != '\n' && (c = getc(dfd)) != EOF;)
    tbuf[n++] = static_cast<char>(c);
  tbuf[n] = 0;
  return n;
}

// A line loses its newline, and a carriage return right before that. A piece that fills the buffer
// loses its last character too; only an unfinished last line keeps all.
static void read_defaults(const char* name) {
  FILE* dfd = open_file(name, "r");
  while (std::size_t n = read_piece(dfd)) {
    const bool newline = tbuf[n - 1] == '\n';
    if (newline || !at_end(dfd)) tbuf[--n] = 0;
    if (newline && n > 0 && tbuf[n - 1] == '\r') tbuf[n - 1] = 0;
    set_alt_an_env(tbuf);
  }
  fclose(dfd);
}

// The option actions. `word` is the option's place on the command line, whose end is a null; each
// returns how many words it took behind it.
static int add_file(char** word) {
  global_flags |= sql_add;
  afd = open_file(*word + 2, "w");
  return 0;
}

static int update_file(char** word) {
  global_flags |= sql_update;
  ufd = open_file(*word + 2, "w");
  return 0;
}

static int where_file(char** word) {
  global_flags |= sql_where;
  wfd = open_file(*word + 2, "w");
  return 0;
}

static int defaults_file(char** word) {
  read_defaults(*word + 2);
  return 0;
}

static int flip_termcap(char**) {
  use_termcap = 1 - use_termcap;
  return 0;
}

static int flip_reverse(char**) {
  use_reverse = 1 - use_reverse;
  return 0;
}

static int test_keys(char**) { key_test(); }

static int screen_files(char** word) {
  if (word[1] && std::strcmp(word[1], "stdin") == 0) stdin_flag = 1;
  InitializeScreens(word[1]);
  return 1;
}

static int progress_numbers(char** word) {
  int numbers[4] = {};
  numbers_given = word[1] && read_numbers(word[1], ",,,", numbers, INT_MAX) == 4;
  x = std::clamp(numbers[0], -coordinate_limit, coordinate_limit);
  y = std::clamp(numbers[1], -coordinate_limit, coordinate_limit);
  curr = numbers[2];
  tot = numbers[3];
  return word[1] ? 1 : 0;
}

static int message_words(char** word) {
  int place[2] = {};
  numbers_given = word[1] && read_numbers(word[1], ",", place) == 2;
  x = place[0];
  y = place[1];
  if (!word[1]) return 0;
  msg = word[2];
  return msg ? 2 : 1;
}

struct option_row {
  char letter;
  int mode;               // mode bit, or 0
  int (*action)(char**);  // or null
};
static const option_row options[] = {
    {'A', 0, add_file},
    {'U', 0, update_file},
    {'W', 0, where_file},
    {'I', 0, defaults_file},
    {'T', 0, flip_termcap},
    {'r', 0, flip_reverse},
    {'d', 0, test_keys},
    {'D', mode_dump, nullptr},
    {'l', mode_list, nullptr},
    {'b', mode_box, nullptr},
    {'e', mode_error, nullptr},
    {'p', mode_position, nullptr},
    {'f', mode_screens, screen_files},
    {'t', mode_progress, progress_numbers},
    {'m', mode_message, message_words},
};

// Acts on the option at `word` and returns how many words it took behind it. A letter that is not
// in the table is passed over.
static int take_option(char** word) {
  for (const option_row& option : options) {
    if ((*word)[1] != option.letter) continue;
    fn |= option.mode;
    return option.action ? option.action(word) : 0;
  }
  return 0;
}

static void scan(char** word) {
  while (*word && **word == '-') word += 1 + take_option(word);
  if (*word) largv = word;
}

// Whether the positional words begin with `numbers` numbers and have `texts` words behind them.
static bool words_given(int numbers, int texts) {
  int number = 0;
  char** word = largv;
  if (!word) return false;
  for (; numbers > 0; numbers--, word++)
    if (!*word || !read_number(*word, number)) return false;
  for (; texts > 0; texts--, word++)
    if (!*word) return false;
  return true;
}

static bool always() { return true; }
static bool list_words() { return words_given(2, 1); }
static bool box_words() { return words_given(4, 0); }
static bool error_words() { return words_given(0, 1); }
static bool position_words() { return words_given(2, 0); }
static bool bar_numbers() { return numbers_given && y >= 1; }
static bool message_given() { return numbers_given && msg; }

static void run_list() { ret = do_list(0, 0); }
static void run_framed_list() { ret = do_list(1, 0); }
static void run_box() { do_box(); }
static void run_screens() { ex = do_screen(); }
static void run_error() { error_pop(largv[0]); }
static void run_progress() { ex = do_therm(x, y, curr, tot); }
static void run_message() { stand(x, y, msg, 0, static_cast<int>(std::strlen(msg))); }

static void run_position() {
  read_number(largv[0], x);
  read_number(largv[1], y);
  sposition(x, y);
  restore_ttymode();
  exit(exit_normal);
}

struct mode_row {
  int fn;
  bool (*ready)();  // the mode's words are there
  void (*run)();    // with the terminal set up
};
static const mode_row modes[] = {
    {mode_list, list_words, run_list},
    {mode_box, box_words, run_box},
    {mode_list | mode_box, list_words, run_framed_list},
    {mode_screens, always, run_screens},
    {mode_error, error_words, run_error},
    {mode_position, position_words, run_position},
    {mode_progress, bar_numbers, run_progress},
    {mode_message, message_given, run_message},
    {mode_dump, always, capability_dump},
};

static const mode_row& chosen_mode() {
  for (const mode_row& mode : modes)
    if (mode.fn == fn && mode.ready()) return mode;
  usage();
}

static void run_mode() {
  const mode_row& mode = chosen_mode();
  go_raw();
  mode.run();
}

// A file opened in the place of a closed descriptor would receive what is meant for the terminal.
static void occupy_standard_descriptors() {
  for (int fd = 0; fd <= 2; fd++)
    if (fcntl(fd, F_GETFD) == -1) open("/dev/null", O_RDWR);
}

[[noreturn]] static void finish() {
  close_terminal();
  if (ret != -1) {
    snprintf(cbuf, sizeof cbuf, "SCRIM=%d\n", ret);
    p_out(cbuf);
  }
  exit(ex);
}

}  // namespace scrim

// The buffer of standard error holds a whole capability string, so that each string is one write.
// The buffer of standard output keeps the results until the terminal is the user's again; only what
// does not fit goes out before. Both are the program's own: they are there where memory has run
// out.
int main(int argc, char** argv) {
  scrim::occupy_standard_descriptors();
  static char error_buffer[4096], result_buffer[4096];
  setvbuf(stderr, error_buffer, _IOFBF, sizeof error_buffer);
  setvbuf(stdout, result_buffer, _IOFBF, sizeof result_buffer);
  scrim::keep_reserve();
  if (argc > 0) scrim::progname = argv[0];
  scrim::scan(argv + (argc > 0));
  scrim::run_mode();
  scrim::finish();
}
