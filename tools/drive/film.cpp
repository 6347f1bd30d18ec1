// drive/film: a part of a picture is written once, in a group with all that is to be seen in the
// same frames. Keyframes show and hide the group. Where they are not played, only the groups of the
// still frame are seen.

#include "tools/drive/film.h"

#include <cstdio>
#include <map>
#include <utility>

namespace scrim {

const key_step opening = {wait_a_time, 1500, "", ""};
static const int closing_time = 2000;  // ms that the last frame is shown for beyond its own

// A text behind a key begins a new line of keys.
static void note_keys(std::vector<shown_key>& shown, const std::string& keys) {
  const bool named = keys.starts_with('<');
  const bool after_name = !shown.empty() && shown.back().times > 0;
  const std::string text = named ? keys.substr(1, keys.size() - 2) : keys;
  if (named && after_name && shown.back().text == text) {
    shown.back().times++;
    return;
  }
  if (!named && after_name) shown.clear();
  if (named || shown.empty()) shown.push_back({"", named ? 1 : 0});
  shown.back().text += text;
}

void add_frame(screen_film& film, const Emulator& emulator, const key_step& step) {
  std::vector<film_frame>& frames = film.frames;
  if (!step.keys.empty()) note_keys(film.keys, step.keys);
  film_frame frame = {svg_runs(emulator), {svg_cursor(emulator), svg_keys(emulator, film.keys)}, 0};
  if (frames.empty() || frames.back().cells != frame.cells || frames.back().above != frame.above)
    frames.push_back(std::move(frame));
  frames.back().time += step.time;
  if (step.kind == take_shot) film.still = frames.size() - 1;
}

using presence = std::vector<bool>;  // for each frame, whether something is seen in it
using frame_layer = std::vector<std::string> film_frame::*;

static std::map<presence, std::string> groups_of(const screen_film& film, frame_layer layer) {
  std::map<std::string, presence> parts;
  for (std::size_t i = 0; i < film.frames.size(); i++)
    for (const std::string& part : film.frames[i].*layer) {
      parts[part].resize(film.frames.size());
      parts[part][i] = true;
    }
  parts.erase("");  // no cursor, nothing but blanks
  std::map<presence, std::string> groups;
  for (const auto& [part, seen] : parts) groups[seen] += part;
  return groups;
}

static int length_of(const screen_film& film) {
  int length = closing_time;
  for (const film_frame& frame : film.frames) length += frame.time;
  return length;
}

static std::string keyframes_of(const screen_film& film, const presence& seen, int number) {
  std::string style = "@keyframes k" + std::to_string(number) + "{";
  int start = 0;
  for (std::size_t i = 0; i < seen.size(); start += film.frames[i++].time) {
    if (i > 0 && seen[i] == seen[i - 1]) continue;
    char percent[40];
    snprintf(percent, sizeof percent, "%.6g%%", 100.0 * start / length_of(film));
    style += percent + std::string(seen[i] ? "{visibility:visible}" : "{visibility:hidden}");
  }
  return style + "}\n";
}

static void add_layer(std::string& parts, std::map<presence, int>& numbers, const screen_film& film,
                      frame_layer layer) {
  for (const auto& [seen, group] : groups_of(film, layer)) {
    const int number = numbers.try_emplace(seen, numbers.size()).first->second;
    const bool hidden = !seen[film.still.value_or(seen.size() - 1)];
    parts += "<g style=\"animation-name:k" + std::to_string(number) + "\"" +
             (hidden ? " visibility=\"hidden\">\n" : ">\n") + group + "</g>\n";
  }
}

std::string svg_film(const screen_film& film, const Emulator& emulator) {
  std::map<presence, int> numbers;
  std::string parts;
  add_layer(parts, numbers, film, &film_frame::cells);
  add_layer(parts, numbers, film, &film_frame::above);
  std::string style = "<style>\n@media (prefers-reduced-motion:no-preference){g{animation:" +
                      std::to_string(length_of(film)) + "ms step-end infinite}}\n";
  for (const auto& [seen, number] : numbers) style += keyframes_of(film, seen, number);
  return svg_document(emulator, with_keys, style + "</style>\n" + parts);
}

}  // namespace scrim
