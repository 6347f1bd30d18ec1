// tools/check/overlaps: all gadgets but scroll windows take one row, so what covers such a gadget
// is looked up in an index of its row: the time does not grow with the square of their number.
// Scroll windows, which have many rows and rules of their own, are few: each is compared with all
// others.

#include "tools/check/overlaps.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace scrim {

// Who takes each cell: of several gadgets the one declared first.
class Occupancy {
 public:
  // The gadget declared first in the columns [from, to) of a row; null: there is none.
  const declaration* first(int row, int from, int to) const;

  // Gives the cells that are still free there to a gadget.
  void take(int row, int from, int to, const declaration* gadget);

 private:
  struct run {
    int to;  // the column behind its last one
    const declaration* gadget;
  };
  using runs = std::map<std::pair<int, int>, run>;  // by row and first column; none overlap

  runs::const_iterator first_behind(int row, int column) const;

  runs runs_;
};

// The first run that ends behind the column, or belongs to a row below.
Occupancy::runs::const_iterator Occupancy::first_behind(int row, int column) const {
  const auto at = runs_.upper_bound({row, column});
  if (at == runs_.begin()) return at;
  const auto before = std::prev(at);
  return before->first.first == row && before->second.to > column ? before : at;
}

// The pointers lead into one vector, whose order is that of the declarations.
static const declaration* earlier(const declaration* one, const declaration* other) {
  if (!one || !other) return one ? one : other;
  return std::min(one, other);
}

const declaration* Occupancy::first(int row, int from, int to) const {
  const declaration* found = nullptr;
  if (from >= to) return found;
  auto at = first_behind(row, from);
  for (; at != runs_.end() && at->first < std::pair(row, to); at++)
    found = earlier(found, at->second.gadget);
  return found;
}

void Occupancy::take(int row, int from, int to, const declaration* gadget) {
  auto at = first_behind(row, from);
  for (; at != runs_.end() && at->first < std::pair(row, to); at++) {
    if (from < at->first.second) runs_.emplace(std::pair(row, from), run{at->first.second, gadget});
    from = at->second.to;
  }
  if (from < to) runs_.emplace(std::pair(row, from), run{to, gadget});
}

static bool is_text(const declaration& it) { return kind_of(*it.gadget) == GF_TEXT; }
static bool is_window(const declaration& it) { return kind_of(*it.gadget) == GF_SWIN; }

static bool is_blank(char c) { return c == ' ' || c == static_cast<char>(' ' | 0x80); }

// The columns [from, to) in which a gadget leaves nothing free. The blanks of a text are free for
// what is painted after it.
struct columns {
  int from, to;
};
static std::vector<columns> taken_columns(const declaration& it) {
  if (!is_text(it)) return {{it.cells.x, it.cells.x + it.cells.w}};
  std::vector<columns> words;
  int column = it.gadget->x;
  for (const char* at = it.gadget->text; *at; at++, column++) {
    if (is_blank(*at)) continue;
    if (words.empty() || words.back().to != column) words.push_back({column, column});
    words.back().to++;
  }
  return words;
}

// A scroll window is drawn once. Where its screen comes back, a text in its place stands in for it.
static bool stands_in(const declaration& text, const declaration& window) {
  return is_text(text) && is_window(window) && inside(text.cells, window.cells);
}

static bool overlap(const declaration& under, const declaration& over) {
  const area &a = under.cells, &b = over.cells;
  if (a.y >= b.y + b.h || b.y >= a.y + a.h) return false;
  if (stands_in(under, over) || stands_in(over, under)) return false;
  const std::vector<columns> taken = taken_columns(under);
  return std::any_of(taken.begin(), taken.end(), [&](const columns& part) {
    return std::max(part.from, b.x) < std::min(part.to, b.x + b.w);
  });
}

// The gadgets of a screen that are placed, as far as they are looked at.
struct placed_gadgets {
  std::vector<const declaration*> all;
  std::vector<const declaration*> windows;
  Occupancy rows;  // the others
};

static const declaration* first_under(const placed_gadgets& before, const declaration& it) {
  const auto& compared = is_window(it) ? before.all : before.windows;
  const auto found = std::find_if(compared.begin(), compared.end(),
                                  [&](const declaration* other) { return overlap(*other, it); });
  const declaration* first = found == compared.end() ? nullptr : *found;
  if (is_window(it)) return first;
  return earlier(first, before.rows.first(it.cells.y, it.cells.x, it.cells.x + it.cells.w));
}

static void add(placed_gadgets& before, const declaration& it) {
  before.all.push_back(&it);
  if (is_window(it)) {
    before.windows.push_back(&it);
  } else {
    for (const auto& [from, to] : taken_columns(it)) before.rows.take(it.cells.y, from, to, &it);
  }
}

void check_overlaps(form& checked) {
  placed_gadgets before;
  int screen = 0;
  for (const declaration& it : checked.gadgets) {
    if (it.screen != screen) before = {};
    screen = it.screen;
    if (!it.placed) continue;
    if (const declaration* under = first_under(before, it))
      report(checked, it.screen, it.line,
             std::string(it.kind->name) + " overlaps the " + under->kind->name + " of line " +
                 std::to_string(under->line));
    add(before, it);
  }
}

}  // namespace scrim
