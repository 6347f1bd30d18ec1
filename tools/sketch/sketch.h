// sketch/sketch: one screen as a drawing holds it.
// Columns and rows count from 0 at the upper left corner of the window's frame, as in screen files.
#pragma once

#include "screens/model.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace scrim {

// A place in the text of a sketch, both counted from 1; line 0: it stands nowhere.
struct place {
  int line = 0;
  int column = 0;
};

// A rectangle of cells.
struct extent {
  int x = 0, y = 0, w = 0, h = 1;
  bool operator==(const extent&) const = default;
};

enum class kind { button, field, checkbox, exclusive, list, window };

// A gadget. What its kind does not have stays empty.
struct gadget {
  kind what = kind::field;
  extent cells = {};          // without brackets; of a button with them
  std::string key = {};       // what the legend calls it
  place drawn = {};           // in the picture, or in the legend
  std::string label = {};     // button: with its underscore and the bracket that opens it
  std::string variable = {};  // all kinds but the button
  std::string value = {};     // at first: text, entry or state
  std::string type = {};      // field: as screen files name it
  bool required = false;      // field
  bool password = false;      // field
  int most = 0;               // field: characters that can be entered
  std::vector<std::string> entries = {};  // list
  std::string attached = {};              // checkbox: "a" or "b"
  std::string action = {};                // button
  std::optional<bool> checks = {};        // button: whether the fields are checked first
  std::string file = {};                  // window
  std::string highlight = {};             // window: what follows "swhigh:"
  std::string start = {};                 // window: what follows "swpos:"
  bool deferred = false;                  // window: "swdefer" precedes it
  bool verbatim = false;                  // not drawn: `lines` are all that is known of it
  std::vector<std::string> lines = {};    // of the screen file
};

// The largest window.
constexpr int most_columns = 80;
constexpr int most_rows = 24;

// What scrim keeps of each, in bytes.
constexpr int longest_value = sizeof(gadget_list::text) - 1;
constexpr std::size_t longest_name = sizeof(gadget_list::op) - 1;
constexpr std::size_t longest_action = longest_name;
constexpr std::size_t longest_screen_name = longest_action - 1;  // an action's ">" precedes it

// Where a screen file's texts begin.
constexpr int first_text_column = 4;
constexpr int first_text_row = 2;

// A text in one row.
struct text_run {
  int x = 0, y = 0;
  std::string text;
  place drawn;
};

// A block of text that a checkbox paints. Each line covers the whole width.
struct attached_text {
  std::string letters;  // "a", "b" or "ab": the texts that have this place
  extent cells;
  place drawn;
};

// What the legend says of one.
struct attached_lines {
  std::vector<std::string> lines = {};
  place where = {};  // of the first line
};

struct sketch {
  std::vector<std::string> comments;  // lines above the picture, with their "#"
  std::string name;
  std::string title;
  std::string window;  // the directive: "fulls:clear", "pop:40,10"
  extent cells;        // of the window
  place corner;        // where its frame begins in the picture
  std::vector<gadget> gadgets;
  std::vector<std::size_t> order;     // of the gadgets as they are declared; empty: by itself
  place order_said;                   // in the legend
  std::optional<std::size_t> active;  // which gadget is active at first; none: by itself
  std::optional<std::string> default_action;  // none: the one of the button that goes on
  bool default_checks = false;                // of default_action
  std::vector<text_run> texts;                // by rows
  std::vector<extent> boxes;
  std::vector<attached_text> attached;
  std::array<attached_lines, 2> attached_said;  // of "a" and of "b"
  std::vector<std::string> lines;               // of the screen file, in the place of the texts
};

// In the place of a gadget: a text is active at first.
constexpr std::size_t no_gadget = static_cast<std::size_t>(-1);

}  // namespace scrim
