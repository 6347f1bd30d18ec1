// sketch/form_reader: reads a screen file with the program's own loader, as a sketch.
#pragma once

#include "tools/sketch/sketch.h"
#include "tools/sketch/source.h"

#include <string>
#include <vector>

namespace scrim {

// A text of the screen file in one row. Like gadgets, what is verbatim is not drawn: its lines are
// written as they are.
struct read_text {
  text_run run;
  int block;         // which of the file's blocks it stands in, counted from 0
  int x, end;        // the columns that it paints, trailing blanks included
  std::string line;  // as it is written
  bool verbatim = false;
  bool stands_in = false;  // is painted where the frame of a scroll window is, and drawn with that
};

struct read_box {
  extent cells;
  std::string line;
  bool verbatim = false;
};

struct read_attached {
  std::string letter;
  extent cells;                    // of its first line
  std::vector<std::string> lines;  // as they are painted
  std::vector<std::string> block;  // as it is written
  bool verbatim = false;
};

// What a sketch is made of. `drawn` has the gadgets, without texts and frames.
struct read_form {
  sketch drawn;
  std::vector<read_text> texts;
  std::vector<std::vector<std::string>> blocks;  // of texts, as they are written
  bool whole_blocks = false;                     // these are written, and no text is drawn
  std::string first_text;                        // the first line of all texts
  std::vector<read_box> boxes;
  std::vector<read_attached> attached;
};

// Reads the screen file whose lines `from` has. Its references stay as they are. Returns false when
// memory has run out; what no sketch can hold is noted as a mistake.
bool read_screen(source& from, read_form& form);

}  // namespace scrim
