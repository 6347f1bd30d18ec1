// scrim-drive: runs a command in a terminal of its own, types a key script into it, and prints the
// screen that the command shows. The command's standard output and exit status pass through.

#include "tools/drive/film.h"
#include "tools/drive/key_script.h"
#include "tools/emulator/emulator.h"
#include "tools/emulator/picture.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include <unistd.h>

namespace scrim {

static const int key_limit = 2000;  // ms until the next key is waited for; also for a kill to act
static const int most_cells = 500;  // rows, columns

struct drive_options {
  emulator_setup setup;
  std::string keys;
  const char* picture_file = nullptr;  // null: standard error
  const char* film_file = nullptr;     // null: no film
  bool svg = false;
  int quiet = 50;       // ms without output after which the next key is typed
  int patience = 2000;  // ms for the command to end after the last key
};

[[noreturn]] static void show_usage() {
  fputs(
      "usage: scrim-drive [-su] [-r rows] [-c columns] [-T term] [-k keys | -K file]\n"
      "                   [-q ms] [-w ms] [-o file] [-a file] [--] command [argument ...]\n",
      stderr);
  exit(own_failure);
}

static std::string content_of(const char* name) {
  FILE* file = fopen(name, "r");
  if (!file) give_up(std::string(name) + ": " + std::strerror(errno));
  std::string content;
  char buffer[4096];
  while (std::size_t length = fread(buffer, 1, sizeof buffer, file)) content.append(buffer, length);
  fclose(file);
  return content;
}

struct option_row {
  const char* letter;  // as getopt() takes it: a ":" behind it where a word follows
  void (*take)(drive_options& options, const char* word);
};
static const option_row option_rows[] = {
    {"r:", [](auto& chosen, auto word) { chosen.setup.rows = number_in(word, 1, most_cells); }},
    {"c:", [](auto& chosen, auto word) { chosen.setup.columns = number_in(word, 1, most_cells); }},
    {"T:", [](auto& chosen, auto word) { chosen.setup.term = word; }},
    {"k:", [](auto& chosen, auto word) { chosen.keys = word; }},
    {"K:", [](auto& chosen, auto word) { chosen.keys = content_of(word); }},
    {"s", [](auto& chosen, auto) { chosen.svg = true; }},
    {"u", [](auto& chosen, auto) { chosen.setup.utf8 = true; }},
    {"q:", [](auto& chosen, auto word) { chosen.quiet = number_in(word, 1, most_time); }},
    {"w:", [](auto& chosen, auto word) { chosen.patience = number_in(word, 0, most_time); }},
    {"o:", [](auto& chosen, auto word) { chosen.picture_file = word; }},
    {"a:", [](auto& chosen, auto word) { chosen.film_file = word; }},
};

static void take_option(drive_options& options, int letter) {
  for (const option_row& row : option_rows)
    if (*row.letter == letter) return row.take(options, optarg);
  show_usage();
}

static drive_options read_options(int count, char** words) {
  drive_options options;
  std::string letters = "+";  // the options end at the command
  for (const option_row& row : option_rows) letters += row.letter;
  opterr = 0;  // the usage text says it all, without the word that was typed
  for (int letter; (letter = getopt(count, words, letters.c_str())) != -1;)
    take_option(options, letter);
  if (optind >= count) show_usage();
  options.setup.output = STDOUT_FILENO;
  return options;
}

static void pump_for(Emulator& emulator, int time) {
  const std::int64_t deadline = milliseconds() + time;
  for (std::int64_t left = time; left > 0 && !emulator.ended(); left = deadline - milliseconds())
    emulator.pump(static_cast<int>(left));
}

static void await_key(Emulator& emulator, const drive_options& options) {
  emulator.await_key(options.quiet, std::max(key_limit, 10 * options.quiet));
}

static void take(Emulator& emulator, const key_step& step, const drive_options& options) {
  if (step.kind == wait_a_time) pump_for(emulator, step.time);
  if (step.kind != type_keys) return;
  emulator.send(step.bytes);
  await_key(emulator, options);
}

// Returns the picture of the last <shot>, or else of the last screen.
static std::string play(Emulator& emulator, const std::vector<key_step>& steps,
                        const drive_options& options, screen_film& film) {
  auto* picture = options.svg ? svg_picture : text_picture;
  std::optional<std::string> shot;
  for (const key_step& step : steps) {
    if (step.kind == type_keys && emulator.ended()) continue;
    take(emulator, step, options);
    if (options.film_file) add_frame(film, emulator, step);
    if (step.kind == take_shot) shot = picture(emulator);
  }
  return shot ? *shot : picture(emulator);
}

static void write_picture(const std::string& picture, const char* name) {
  FILE* file = name ? fopen(name, "w") : stderr;
  if (!file) give_up(std::string(name) + ": " + std::strerror(errno));
  const std::size_t written = fwrite(picture.data(), 1, picture.size(), file);
  const int failed = name ? fclose(file) : fflush(file);
  if (failed != 0 || written != picture.size()) give_up("the picture could not be written");
}

// The command's exit status. The command may end by itself; if it does not, it is hung up, then
// killed.
static int end_of(Emulator& emulator, int patience) {
  pump_for(emulator, patience);
  if (emulator.ended()) return emulator.status();
  fputs("scrim-drive: the command still runs after the last key: hung up\n", stderr);
  emulator.hang_up();
  pump_for(emulator, key_limit);
  if (!emulator.ended()) kill(-emulator.pid(), SIGKILL);
  pump_for(emulator, key_limit);
  return emulator.ended() ? emulator.status() : 128 + SIGKILL;
}

static int drive(int count, char** words) {
  const drive_options options = read_options(count, words);
  const text_pace pace = options.film_file ? by_character : at_once;
  const std::vector<key_step> steps = steps_of(options.keys, options.setup.term, pace);
  Emulator emulator(options.setup);
  if (!emulator.start({words + optind, words + count})) give_up("no terminal or no process");
  await_key(emulator, options);
  screen_film film;
  if (options.film_file) add_frame(film, emulator, opening);
  write_picture(play(emulator, steps, options, film), options.picture_file);
  if (options.film_file) write_picture(svg_film(film, emulator), options.film_file);
  return end_of(emulator, options.patience);
}

}  // namespace scrim

int main(int argc, char** argv) { return scrim::drive(argc, argv); }
