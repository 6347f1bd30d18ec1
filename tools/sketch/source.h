// sketch/source: the text of a sketch, and what is wrong with it.
#pragma once

#include "tools/sketch/sketch.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace scrim {

struct mistake {
  place where;
  std::string text;
};

struct source {
  std::string path;
  std::vector<std::string> lines;
  std::vector<mistake> mistakes;
};

// The text as lines, without their line ends.
std::vector<std::string> split_lines(std::string_view text);

// The lines as a text, each with its newline.
std::string joined(const std::vector<std::string>& lines);

// A text without the blanks at its ends.
std::string_view without_blanks(std::string_view text);

// Notes a mistake: the parts, joined.
void report(source& from, place where, std::initializer_list<std::string_view> parts);

// Writes the mistakes to standard error, in the order of their places, each with its line and a
// caret under the place.
void print_mistakes(const source& from);

// A line as cells, each with the bytes of its character. A character twice as wide as others has an
// empty cell behind it; a byte that begins no character is a cell of its own.
std::vector<std::string> cells_of(std::string_view line);

}  // namespace scrim
