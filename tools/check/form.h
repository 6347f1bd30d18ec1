// tools/check/form: a list of screen files as scrim's loader has read it, with what its records do
// not keep: lines, cells, and where actions lead.
#pragma once

#include "screens/model.h"
#include "tools/check/findings.h"

#include <string>
#include <vector>

namespace scrim {

// Cells of the terminal.
struct area {
  int x, y, w, h;
};

// What the rules know of a kind of gadget.
struct kind_row {
  int kind;
  int brackets;            // columns that stand left and right of its width
  const char* name;        // for messages
  const char* without_op;  // complaint about an empty variable or action; null: may be empty
};

struct declaration {
  const gadget_list* gadget;
  const kind_row* kind;
  int screen;
  int line;
  bool placed;  // its numbers are good
  area cells;   // brackets included, but not the blanks that a line of text begins with
};

struct screen_notes {
  int name;            // line of the name directive; 0: none
  int default_action;  // line of the bdefault directive; 0: none
  bool reached;        // an action leads there, or it is the first
  bool pops_up;        // an action pops it up
  bool returns;        // an action of its own is "^"
};

struct form {
  std::vector<screen_notes> screens;  // those of s_screen
  std::vector<declaration> gadgets;   // in the order of the files
  std::vector<std::string> lines;     // of the file being read, as they are written
  findings found;
};

screen_notes& notes_of(form& checked, int screen);

// A line of the file being read, as it is written.
const std::string& line_at(const form& checked, int line);

// Adds a fault, or a note, to what is found.
void report(form& checked, int screen, int line, const std::string& text);
void report_note(form& checked, int screen, int line, const std::string& text);

area window_of(const per_screen& screen);

bool inside(const area& inner, const area& outer);

// What is noted of a gadget of screen `curscreen`.
declaration declare(const gadget_list& gadget, int line, bool placed);

}  // namespace scrim
