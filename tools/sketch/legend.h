// sketch/legend: reads what stands below the picture of a sketch.
#pragma once

#include "tools/sketch/sketch.h"
#include "tools/sketch/source.h"

#include <string>
#include <string_view>
#include <vector>

namespace scrim {

// What is said of something, "most 40" for example.
struct property {
  std::string name;
  std::string value;
  place where;
  bool is_open = false;  // the value begins with a quote that has no end
};

// A line of the legend, by whose key something in the picture is found.
struct entry {
  std::string key;
  int number;  // which one of those with this key, counted from 1; 0: there is but one
  place where;
  std::string text;                  // behind the key
  std::vector<property> properties;  // the text taken apart
  std::vector<std::string> lines;    // of the screen file, for which the entry stands
};

struct legend {
  std::vector<entry> entries;
};

// The parts of a text between its commas, each with its place.
std::vector<property> split_items(std::string_view text, place where);

// An entry of this key, its quotes and its number taken off.
entry keyed(std::string_view key, place where);

// A text without the quotes around it.
std::string unquoted(std::string_view text);

// Reads the lines from index `first` on.
legend read_legend(source& from, int first);

// Whether the legend says what the button of this label does.
bool names_button(const legend& read, std::string_view label);

}  // namespace scrim
