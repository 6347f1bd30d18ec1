// tools/check/form: a list of screen files as scrim's loader has read it, with what its records do
// not keep: lines, cells, and where actions lead.
#pragma once

#include "screens/model.h"
#include "tools/check/findings.h"

#include <string>
#include <string_view>
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
  int name;          // line of the name directive; 0: none
  int title;         // line of the title directive; 0: none
  int title_length;  // of the title, uncut
  bool alone;        // it is reached with no screen below
  bool over;         // it is reached over another screen, to which "^" returns
  bool returns;      // it is reached, and an action of its own is "^"
};

// An action as its line gives it, however long.
struct declared_action {
  int screen;
  int line;
  std::string text;
  bool of_button;  // else a screen's default
  bool checks;     // has the Y
};

// A frame, by itself or of a scroll window.
struct declared_frame {
  int screen;
  int line;
  const char* name;  // for messages
  area cells;
};

struct form {
  std::vector<screen_notes> screens;  // those of s_screen
  std::vector<declaration> gadgets;   // in the order of the files
  std::vector<declared_action> actions;
  std::vector<declared_frame> frames;
  std::vector<std::string> lines;  // of the file being read, as they are written
  findings found;
};

screen_notes& notes_of(form& checked, int screen);

// Whether an action ends the form; others lead to a screen, or return from one.
bool leaves_form(std::string_view action);

// Whether a way leads to the screen, or it is the first.
bool is_reached(const screen_notes& screen);

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
