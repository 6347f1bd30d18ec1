// scrim-drive: runs a command in a terminal of its own, types a key script into it, and prints the
// screen it shows. The command's standard output and exit status pass through.

#include "tools/drive/key_script.h"
#include "tools/emulator/emulator.h"
#include "tools/emulator/picture.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include <unistd.h>

namespace scrim {

namespace {

constexpr int key_limit = 2000;  // ms until the next key is waited for; also for a command to die
constexpr int most_cells = 500;  // rows, columns

struct drive_options {
  emulator_setup setup;
  std::string keys;
  const char* picture_file = nullptr;
  bool svg = false;
  int quiet = 50;       // ms
  int patience = 2000;  // ms for the command to end once the keys are used up
};

[[noreturn]] void show_usage() {
  fputs(
      "usage: scrim-drive [-su] [-r rows] [-c columns] [-T term] [-k keys | -K file]\n"
      "                   [-q ms] [-w ms] [-o file] [--] command [argument ...]\n",
      stderr);
  exit(own_failure);
}

std::string content_of(const char* name) {
  FILE* file = fopen(name, "r");
  if (file == nullptr) give_up(std::string(name) + ": " + strerror(errno));
  std::string content;
  char buffer[4096];
  while (size_t length = fread(buffer, 1, sizeof buffer, file)) content.append(buffer, length);
  fclose(file);
  return content;
}

drive_options read_options(int count, char** words) {
  drive_options options;
  for (int letter; (letter = getopt(count, words, "+r:c:T:k:K:suq:w:o:")) != -1;) {
    switch (letter) {
      case 'r':
        options.setup.rows = number_in(optarg, 1, most_cells);
        break;
      case 'c':
        options.setup.columns = number_in(optarg, 1, most_cells);
        break;
      case 'T':
        options.setup.term = optarg;
        break;
      case 'k':
        options.keys = optarg;
        break;
      case 'K':
        options.keys = content_of(optarg);
        break;
      case 's':
        options.svg = true;
        break;
      case 'u':
        options.setup.utf8 = true;
        break;
      case 'q':
        options.quiet = number_in(optarg, 1, most_time);
        break;
      case 'w':
        options.patience = number_in(optarg, 0, most_time);
        break;
      case 'o':
        options.picture_file = optarg;
        break;
      default:
        show_usage();
    }
  }
  if (optind >= count) show_usage();
  options.setup.output = STDOUT_FILENO;
  return options;
}

void pump_for(Emulator& emulator, int time) {
  const int64_t deadline = milliseconds() + time;
  for (int64_t left = time; left > 0 && !emulator.ended(); left = deadline - milliseconds())
    emulator.pump(static_cast<int>(left));
}

// Returns the picture of the last <shot>, or else of the last screen.
std::string play(Emulator& emulator, const std::vector<key_step>& steps,
                 const drive_options& options) {
  auto* picture = options.svg ? svg_picture : text_picture;
  std::optional<std::string> shot;
  for (const key_step& step : steps) {
    if (step.kind == key_step::shot) shot = picture(emulator);
    if (step.kind == key_step::wait) pump_for(emulator, step.time);
    if (step.kind != key_step::type || emulator.ended()) continue;
    emulator.send(step.bytes);
    emulator.await_key(options.quiet, std::max(key_limit, 10 * options.quiet));
  }
  return shot ? *shot : picture(emulator);
}

void write_picture(const std::string& picture, const char* name) {
  FILE* file = name == nullptr ? stderr : fopen(name, "w");
  if (file == nullptr) give_up(std::string(name) + ": " + strerror(errno));
  size_t written = fwrite(picture.data(), 1, picture.size(), file);
  int failed = name == nullptr ? fflush(file) : fclose(file);
  if (failed != 0 || written != picture.size()) give_up("the picture could not be written");
}

// First the command may end by itself, then it is hung up, then killed.
int end_of(Emulator& emulator, int patience) {
  pump_for(emulator, patience);
  if (emulator.ended()) return emulator.status();
  fputs("scrim-drive: the command still runs after the last key: hung up\n", stderr);
  emulator.hang_up();
  pump_for(emulator, key_limit);
  if (!emulator.ended()) kill(-emulator.pid(), SIGKILL);
  pump_for(emulator, key_limit);
  return emulator.ended() ? emulator.status() : 128 + SIGKILL;
}

int drive(int count, char** words) {
  const drive_options options = read_options(count, words);
  const std::vector<key_step> steps = steps_of(options.keys, options.setup.term);
  Emulator emulator(options.setup);
  if (!emulator.start({words + optind, words + count})) give_up("no terminal or no process");
  emulator.await_key(options.quiet, std::max(key_limit, 10 * options.quiet));
  write_picture(play(emulator, steps, options), options.picture_file);
  return end_of(emulator, options.patience);
}

}  // namespace

}  // namespace scrim

int main(int argc, char** argv) { return scrim::drive(argc, argv); }
