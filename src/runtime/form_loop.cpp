// runtime/form_loop: the form itself. A pass shows which gadget is active, reads a key and acts.
// Fields, scroll windows and pop lists have rooms of their own for the keys that act inside them.

#include "runtime/form_loop.h"

#include "common/program.h"
#include "common/text.h"
#include "output/results.h"
#include "runtime/field_editor.h"
#include "runtime/painting.h"
#include "runtime/pop_field.h"
#include "runtime/scroll_keys.h"
#include "runtime/switching.h"
#include "screens/model.h"
#include "term/drawing.h"
#include "term/key_codes.h"
#include "term/keys.h"

#include <cstdio>

namespace scrim {

// What lives for one run of the form.
struct form_state {
  bool editmode;        // the active gadget is an edit field whose editor owns the cursor
  bool swinmode;        // it is a scroll window, and the line keys act inside the window
  bool dotmode;         // the last key was "." on a pop list
  field_cursor cursor;  // in the field being edited
  const gadget_list*
      highlighted;  // the gadget highlighted last; null: none is to be un-highlighted
};

// What an action returns: whether the form has ended.
enum form_end { goes_on, has_ended };

static const int checkboxes = GF_CHECKBOX | GF_XCHECKBOX;
static const int with_default_action = GF_ETEXT | checkboxes | GF_SWIN | GF_POPLIST;
static const int look_flags = GF_BUTTON | GF_PASSWORD;  // of the flags, those that `stand` knows

static bool is_active(int kind) { return curscrn->blp && kind_of(*curscrn->blp) == kind; }

static void leave_gadget(form_state& form) { form.editmode = form.swinmode = false; }

// The gadget highlighted last may belong to another screen now.
static void forget_highlight(form_state& form) {
  form.highlighted = nullptr;
  form.editmode = false;
}

static void draw_state(const gadget_list& gadget, int att) {
  if (gadget.flags & GF_SWIN) return;
  if ((gadget.flags & checkboxes) && *gadget.text == '_') {
    stand(gadget.x, gadget.y, " ", att, 1);
  } else {
    stand(gadget.x, gadget.y, gadget.text, (gadget.flags & look_flags) | att, gadget.w);
  }
}

static void draw_box_state(const gadget_list& box, int att) {
  stand(box.x, box.y, shown_state(box), att, 1);
}

static void move_to(int gadgetid) {
  if (gadgetid != -1) curscrn->activeg = gadgetid;
}

// Leaving, and actions.

static form_end leave(form_state& form, const char* result, int validate) {
  if (!out_modified(validate)) {
    forget_highlight(form);
    return goes_on;
  }
  snprintf(tbuf, sizeof tbuf, "RETN=%s\n", result);
  p_out(tbuf);
  return has_ended;
}

static form_end run_action(form_state& form, const char* action, int validate) {
  if (*action != '^' && *action != '<' && *action != '>') return leave(form, action, validate);
  if (*action == '^') {
    DoSubScreen(action);
  } else {
    DoGoToScreen(action);
  }
  forget_highlight(form);
  return goes_on;
}

static form_end press(form_state& form, const gadget_list& button) {
  return run_action(form, button.op, button.dbtype & DBT_VALIDATE);
}

static form_end confirm(form_state& form, int) {
  const gadget_list* active = curscrn->blp;
  if (active && !(active->flags & with_default_action)) return press(form, *active);
  return run_action(form, curscrn->default_string, curscrn->screentype & ST_VALIDATE);
}

static form_end cancel(form_state& form, int) {
  const gadget_list* active = curscrn->blp;
  return leave(form, "cancel", active ? active->dbtype & DBT_VALIDATE : 0);
}

// Pop lists.

static form_end open_list(form_state& form, int) {
  if (!is_active(GF_POPLIST)) return goes_on;
  const gadget_list& last = *form.highlighted;
  stand(last.x, last.y, " ", ATT_BRACKET, 1);
  open_pop_list(*curscrn->blp);
  return goes_on;
}

static form_end type_on_list(form_state& form, int key) {
  if (form.dotmode && (key == 'W' || key == 'w')) return open_list(form, key);
  if (key == '.') {
    form.dotmode = true;
  } else {
    type_on_pop_list(*curscrn->blp, key);
  }
  return goes_on;
}

// Moving between gadgets.

// The line keys act inside a scroll window, and lead from any other gadget to a neighbour.
static form_end go_by_line(form_state& form, void (*scroll)(gadget_list&),
                           int gadget_list::*neighbour) {
  gadget_list* active = curscrn->blp;
  if (form.swinmode) {
    scroll(*active);
  } else if (active) {
    move_to(active->*neighbour);
    form.editmode = false;
  }
  return goes_on;
}

static form_end go_up(form_state& form, int) { return go_by_line(form, line_up, &gadget_list::up); }

static form_end go_down(form_state& form, int) {
  return go_by_line(form, line_down, &gadget_list::down);
}

static form_end go_left(form_state& form, int) {
  if (form.editmode) {
    cursor_left(*curscrn->blp, form.cursor);
  } else if (curscrn->blp) {
    move_to(curscrn->blp->left);
    leave_gadget(form);
  }
  return goes_on;
}

static form_end go_back(form_state& form, int key) {
  if (!form.editmode) return go_left(form, key);
  backspace(*curscrn->blp, form.cursor);
  return goes_on;
}

static form_end go_next(form_state& form, int) {
  if (curscrn->blp) move_to(curscrn->blp->right);
  leave_gadget(form);
  return goes_on;
}

static form_end go_right(form_state& form, int key) {
  if (is_active(GF_POPLIST)) return open_list(form, key);
  if (!form.editmode) return go_next(form, key);
  cursor_right(*curscrn->blp, form.cursor);
  return goes_on;
}

// Goes where the screen's first action with this marker leads.
static void turn_page(form_state& form, char marker) {
  for (const gadget_list* gadget = curscrn->gadget_lp; gadget; gadget = gadget->next) {
    if (*gadget->op != marker) continue;
    DoGoToScreen(gadget->op);
    forget_highlight(form);
    return;
  }
}

static form_end go_by_page(form_state& form, void (*scroll)(gadget_list&), char marker) {
  if (form.swinmode) {
    scroll(*curscrn->blp);
  } else {
    turn_page(form, marker);
  }
  return goes_on;
}

static form_end page_forward(form_state& form, int) { return go_by_page(form, page_down, '>'); }
static form_end page_back(form_state& form, int) { return go_by_page(form, page_up, '<'); }

static const gadget_list* declared_before(const gadget_list* gadget) {
  return gadget->prev ? gadget->prev : gadget_at(*curscrn, curscrn->gadgets - 1);
}

static form_end confirm_or_previous(form_state& form, int key) {
  const gadget_list* active = curscrn->blp;
  if (!active) return goes_on;
  if (active->flags & GF_BUTTON) return confirm(form, key);
  const gadget_list* target = declared_before(active);
  while ((target->flags & GF_TEXT) && target != active) target = declared_before(target);
  move_to(target->gadgetid);
  leave_gadget(form);
  return goes_on;
}

static gadget_list* gadget_under(int column, int row) {
  for (gadget_list* t = curscrn->gadget_lp; t; t = t->next) {
    if (t->flags & GF_TEXT) continue;
    if (column >= t->x && column <= t->x + t->w && row >= t->y && row <= t->y + t->h) return t;
  }
  return nullptr;
}

static form_end click(form_state& form, int key) {
  const int column = mouse_up[mouse_column], row = mouse_up[mouse_row];
  if (column != mouse_down[mouse_column] || row != mouse_down[mouse_row]) return goes_on;
  gadget_list* target = gadget_under(column, row);
  if (!target) return goes_on;
  move_to(target->gadgetid);
  curscrn->blp = target;
  leave_gadget(form);
  if (target->flags & GF_BUTTON) return press(form, *target);
  return open_list(form, key);
}

// Typing.

static form_end press_hot_key(form_state& form, int key) {
  key = lower_case(key);
  for (const gadget_list* gadget = curscrn->gadget_lp; gadget; gadget = gadget->next)
    if (gadget->hotkey && gadget->hotkey == key) return press(form, *gadget);
  return goes_on;
}

static form_end type_key(form_state& form, int key) {
  if (is_active(GF_POPLIST)) return type_on_list(form, key);
  if (!form.editmode) return press_hot_key(form, key);
  edit_key(*curscrn->blp, form.cursor, key);
  return goes_on;
}

static void clear_rest_of_group(const gadget_list& checked) {
  for (gadget_list* box = curscrn->cb_link; box; box = box->link) {
    if (box == &checked) continue;
    copy_text(box->text, "_");
    draw_box_state(*box, 0);
    box->flags |= GF_MODIFIED;
  }
}

static void toggle(gadget_list& box) {
  const bool checks = *box.text != 'X';
  copy_text(box.text, checks ? "X" : "_");
  draw_box_state(box, ATT_STANDOUT);
  if (checks && (box.flags & GF_XCHECKBOX)) {
    if (box.tlink) do_atext(*box.tlink);
    clear_rest_of_group(box);
  }
  box.flags |= GF_MODIFIED;
}

static form_end select_here(form_state& form, int key) {
  if (is_active(GF_CHECKBOX) || is_active(GF_XCHECKBOX)) {
    toggle(*curscrn->blp);
  } else if (is_active(GF_SWIN)) {
    select_line(*curscrn->blp);
  } else {
    return type_key(form, key);
  }
  return goes_on;
}

static form_end ignore(form_state&, int) { return goes_on; }

struct form_key {
  int key;
  form_end (*action)(form_state&, int key);
};
static const form_key keys[] = {
    {XKEY_UP, go_up},                   //
    {key_ctrl_u, go_up},                //
    {XKEY_DOWN, go_down},               //
    {key_ctrl_d, go_down},              //
    {XKEY_LEFT, go_left},               //
    {key_ctrl_l, go_left},              //
    {XKEY_BACKSPACE, go_back},          //
    {XKEY_RIGHT, go_right},             //
    {key_ctrl_r, go_right},             //
    {XKEY_F3, open_list},               //
    {key_tab, go_next},                 //
    {XKEY_NEXT, page_forward},          //
    {key_ctrl_n, page_forward},         //
    {XKEY_PREV, page_back},             //
    {key_ctrl_b, page_back},            //
    {XKEY_F2, cancel},                  //
    {key_ctrl_x, cancel},               //
    {key_escape, cancel},               //
    {XKEY_MOUSE, click},                //
    {key_return, confirm_or_previous},  //
    {key_line_feed, confirm},           //
    {XKEY_F1, confirm},                 //
    {' ', select_here},                 //
    {XKEY_NULL, ignore},
};

static form_end act(form_state& form, int key) {
  for (const form_key& row : keys)
    if (row.key == key) return row.action(form, key);
  return type_key(form, key);
}

// One pass.

static void set_mode(form_state& form, const gadget_list& active) {
  const int kind = kind_of(active);
  if (kind == GF_ETEXT && !form.editmode) enter_field(active, form.cursor);
  form.editmode = kind == GF_ETEXT;
  form.swinmode = kind == GF_SWIN;
  if (kind & (GF_BUTTON | checkboxes)) sposition(active.x - 1, active.y);
}

static void show_active(form_state& form) {
  if (form.highlighted && !form.editmode) draw_state(*form.highlighted, ATT_BRACKET);
  form.highlighted = curscrn->blp;
  if (!curscrn->blp) {
    leave_gadget(form);
    return;
  }
  const gadget_list& active = *curscrn->blp;
  if (!form.editmode) {
    draw_state(active, ATT_STANDOUT);
    if ((active.flags & GF_SWIN) && curscrn->oldactive != curscrn->activeg)
      sposition(active.x + active.swinx, active.y + active.swiny);
  }
  set_mode(form, active);
}

static form_end pass(form_state& form) {
  const int sactv = curscrn->activeg;
  curscrn->blp = gadget_at(*curscrn, sactv);
  show_active(form);
  const int key = get_key();
  const form_end end = act(form, key);
  if (key != '.') form.dotmode = false;
  curscrn->oldactive = sactv;
  return end;
}

int do_screen() {
  form_state form = {};
  PaintScreen();
  if (curscrn->gadgetc == 0) return 0;
  while (pass(form) == goes_on) {
  }
  return 0;
}

}  // namespace scrim
