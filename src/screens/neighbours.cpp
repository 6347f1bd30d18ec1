// screens/neighbours: the graph that the cursor keys follow from gadget to gadget.
// The gadgets are sorted into reading order once; every neighbour is then a binary search.
//
// Lines 0 to 99 are the layout. Below it, only gadgets on line 100 are reached, from a gadget
// without another one on the lines between; above it, only those on line -1. Such an edge line has
// a column of its own, 100 below and -1 above, and a gadget there counts only if it is nearer than
// that column. For example, Down from a field in line 20, column 60, with nothing on lines 21 to
// 99: a button in line 100, column 90, is 30 columns away and the edge's column 40, so Down leads
// to the button; a button in column 10 is 50 away and is not reached.

#include "screens/neighbours.h"

#include "common/program.h"
#include "term/endings.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdlib>

namespace scrim {

using gadget_pointer = gadget_list*;

static const int above = -1;   // the edge line above the layout, and its column
static const int below = 100;  // the edge line below the layout, and its column

static gadget_pointer* order = nullptr;      // the navigable gadgets by line, column, declaration
static gadget_pointer* order_end = nullptr;  // behind the last gadget of `order`

static bool reads_before(const gadget_list* a, const gadget_list* b) {
  if (a->y != b->y) return a->y < b->y;
  if (a->x != b->x) return a->x < b->x;
  return a->gadgetid < b->gadgetid;
}

// The first gadget in reading order at or behind a place.
static gadget_pointer* at_or_behind(int line, int column) {
  return std::partition_point(order, order_end, [=](const gadget_list* t) {
    return t->y < line || (t->y == line && t->x < column);
  });
}

static gadget_pointer* start_of_line(int line) { return at_or_behind(line, INT_MIN); }
static gadget_pointer* end_of_line(int line) { return start_of_line(line + 1); }

// The first declared of the gadgets that stand where `t` stands.
static gadget_list* first_declared(const gadget_list* t) { return *at_or_behind(t->y, t->x); }

// The gadget in [from, to) that reads last, or null.
static gadget_list* last_in(gadget_pointer* from, gadget_pointer* to) {
  return from < to ? first_declared(to[-1]) : nullptr;
}

static gadget_list* first_in(gadget_pointer* from, gadget_pointer* to) {
  return from < to ? *from : nullptr;
}

static gadget_list* left_of(const gadget_list& b) {
  const int from = b.y == above ? above + 1 : INT_MIN;
  if (gadget_list* t = last_in(at_or_behind(b.y, from), at_or_behind(b.y, b.x))) return t;
  if (b.y >= 0)
    if (gadget_list* t = last_in(start_of_line(0), start_of_line(b.y))) return t;
  if (b.y == above) return nullptr;
  return last_in(at_or_behind(above, above + 1), end_of_line(above));
}

static gadget_list* right_of(const gadget_list& b) {
  gadget_pointer* to = b.y == below ? at_or_behind(b.y, below) : end_of_line(b.y);
  if (gadget_list* t = first_in(at_or_behind(b.y, b.x + 1), to)) return t;
  if (b.y < below)
    if (gadget_list* t = first_in(end_of_line(b.y), start_of_line(below))) return t;
  if (b.y == below) return nullptr;
  return first_in(start_of_line(below), at_or_behind(below, below));
}

// The nearer of two gadgets to b's column, the first declared of equally near ones.
static gadget_list* nearer(const gadget_list& b, gadget_list* one, gadget_list* other) {
  if (!one || !other) return one ? one : other;
  const int first = std::abs(one->x - b.x);
  const int second = std::abs(other->x - b.x);
  if (first != second) return first < second ? one : other;
  return one->gadgetid < other->gadgetid ? one : other;
}

// The gadget of a line, other than b, that is nearest to b's column; null when there is none.
static gadget_list* nearest_on(const gadget_list& b, int line) {
  gadget_pointer* same = at_or_behind(line, b.x);
  gadget_pointer* right = at_or_behind(line, b.x + 1);
  if (same < right && *same == &b) same++;
  if (same < right) return *same;
  return nearer(b, last_in(start_of_line(line), at_or_behind(line, b.x)),
                first_in(right, end_of_line(line)));
}

static gadget_list* nearest_on_edge(const gadget_list& b, int edge) {
  gadget_list* t = nearest_on(b, edge);
  return t && std::abs(t->x - b.x) < std::abs(b.x - edge) ? t : nullptr;
}

static gadget_list* above_of(const gadget_list& b) {
  gadget_pointer* here = start_of_line(b.y);
  if (b.y > 0 && here > start_of_line(0)) return nearest_on(b, here[-1]->y);
  return nearest_on_edge(b, above);
}

static gadget_list* below_of(const gadget_list& b) {
  gadget_pointer* next = end_of_line(b.y);
  if (b.y < below && next < start_of_line(below)) return nearest_on(b, (*next)->y);
  return nearest_on_edge(b, below);
}

static void sort_navigable(const per_screen& screen) {
  const auto room = static_cast<std::size_t>(screen.gadgets) + 1;
  order = static_cast<gadget_pointer*>(
      allocate(room * sizeof *order, "Can't allocate memory for gadget list", exit_screen));
  order_end = order;
  for (gadget_list* t = screen.gadget_lp; t; t = t->next)
    if (navigable(*t)) *order_end++ = t;
  std::sort(order, order_end, reads_before);
}

void link_neighbours(per_screen& screen) {
  sort_navigable(screen);
  if (order != order_end) {
    const int first = (*order)->gadgetid;
    const int last = first_declared(order_end[-1])->gadgetid;
    auto number = [](const gadget_list* t, int otherwise) { return t ? t->gadgetid : otherwise; };
    for (gadget_list* b = screen.gadget_lp; b; b = b->next) {
      if (!navigable(*b)) continue;
      b->up = number(above_of(*b), last);
      b->down = number(below_of(*b), first);
      b->right = number(right_of(*b), first);
      b->left = number(left_of(*b), last);
    }
  }
  free(order);
}

}  // namespace scrim
