// sketch/main: scrim-sketch, which makes a screen file of a drawing, and a drawing of a screen
// file or for a table.

#include "common/program.h"
#include "tools/sketch/form_reader.h"
#include "tools/sketch/reading.h"
#include "tools/sketch/screen_file.h"
#include "tools/sketch/sketch_text.h"
#include "tools/sketch/source.h"
#include "tools/sketch/table_form.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include <unistd.h>

namespace scrim {

static const std::size_t longest_line = 509;  // of a screen file

static const int wrong_call = 2;  // exit status: the call, a file that cannot be opened, no memory
static const int has_mistakes = 1;

static int show_usage() {
  complain({"Usage: scrim-sketch [-frt] [file]"});
  return wrong_call;
}

static bool read_file(const std::string& path, source& from) {
  FILE* file = path == "-" ? stdin : fopen(path.c_str(), "r");
  std::string text, piece(65536, 0);
  if (!file) return false;
  while (const std::size_t n = fread(piece.data(), 1, piece.size(), file)) text.append(piece, 0, n);
  const bool whole = !ferror(file);
  if (file != stdin) fclose(file);
  from.path = path;
  const std::string_view byte_order_mark = "\xef\xbb\xbf";
  if (text.starts_with(byte_order_mark)) text.erase(0, byte_order_mark.size());
  from.lines = split_lines(text);
  return whole;
}

static int cannot_open(const std::string& path) {
  complain({"scrim-sketch: Can't read ", path, ": ", strerror(errno)});
  return wrong_call;
}

static int end_with(const source& from) {
  print_mistakes(from);
  return has_mistakes;
}

// Writes to standard output. Returns the exit status.
static int write_out(const std::string& text) {
  fwrite(text.data(), 1, text.size(), stdout);
  if (fflush(stdout) == 0) return 0;
  complain({"scrim-sketch: ", strerror(errno)});
  return wrong_call;
}

static std::string file_name(const std::string& path) { return path.substr(path.rfind('/') + 1); }

// A screen has the name of its sketch, unless the legend says another.
static std::string screen_name(const std::string& path) {
  const std::string name = file_name(path);
  return path == "-" ? "" : name.substr(0, std::min(name.find('.'), longest_screen_name));
}

static std::string made_of(const sketch& drawn, const std::string& path) {
  return screen_file(drawn, path == "-" ? "a sketch" : file_name(path));
}

static int sketch_to_screen(const std::string& path, std::string& made) {
  source from;
  if (!read_file(path, from)) return cannot_open(path);
  sketch drawn = read_sketch(from);
  if (drawn.name.empty()) drawn.name = screen_name(path);
  if (!from.mistakes.empty()) return end_with(from);
  made = made_of(drawn, path);
  for (const std::string& line : split_lines(made))
    if (line.size() > longest_line) report(from, {1, 1}, {"too long for a screen file: ", line});
  return from.mistakes.empty() ? 0 : end_with(from);
}

static int write_screen_file(const std::string& path) {
  std::string made;
  const int status = sketch_to_screen(path, made);
  return status == 0 ? write_out(made) : status;
}

// Shows the form with scrim in the place of this program. The screen file has no name any more.
static int show_form(const std::string& path) {
  std::string made;
  const int status = sketch_to_screen(path, made);
  if (status != 0) return status;
  FILE* file = tmpfile();
  if (!file || fwrite(made.data(), 1, made.size(), file) != made.size() || fflush(file) != 0)
    return cannot_open("a temporary file");
  rewind(file);
  const std::string name = "/dev/fd/" + std::to_string(fileno(file));
  // Where the sketch came from standard input the keys do not.
  if (path == "-" && !freopen("/dev/tty", "r", stdin)) return cannot_open("/dev/tty");
  execlp("scrim", "scrim", "-f", name.c_str(), static_cast<char*>(nullptr));
  return cannot_open("scrim");
}

static int write_sketch(const std::string& path) {
  source from;
  read_form form;
  if (!read_file(path, from) || !read_screen(from, form)) return cannot_open(path);
  if (!from.mistakes.empty()) return end_with(from);
  const std::string text = joined(sketch_text(form));
  if (!text.empty()) return write_out(text);
  report(from, {1, 1}, {"cannot be drawn"});
  return end_with(from);
}

// A sketch that lacks something is written all the same.
static int write_table_form(const std::string& path) {
  source from;
  if (!read_file(path, from)) return cannot_open(path);
  const int status = write_out(joined(table_form(from)));
  return status != 0 || from.mistakes.empty() ? status : end_with(from);
}

static int run(int argc, char** argv) {
  int (*mode)(const std::string& path) = write_screen_file;
  opterr = 0;
  for (int option = 0; (option = getopt(argc, argv, "frt")) != -1;) {
    if (option == '?' || mode != write_screen_file) return show_usage();
    mode = option == 'f' ? show_form : option == 'r' ? write_sketch : write_table_form;
  }
  if (argc - optind > 1) return show_usage();
  return mode(optind < argc ? argv[optind] : "-");
}

}  // namespace scrim

int main(int argc, char** argv) {
  try {
    return scrim::run(argc, argv);
  } catch (const std::bad_alloc&) {
    fputs("scrim-sketch: out of memory\n", stderr);
    return scrim::wrong_call;
  }
}
