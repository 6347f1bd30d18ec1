// sketch/legend: reads what stands below the picture of a sketch, and applies it.
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

// Reads the lines from index `first` on.
legend read_legend(source& from, int first);

// Whether the legend says what the button of this label does.
bool names_button(const legend& read, std::string_view label);

// Changes what was drawn as the legend says.
void apply_legend(source& from, const legend& read, sketch& drawn);

// The names of a field's types, as the screen file has them.
bool is_type(std::string_view name);

}  // namespace scrim
