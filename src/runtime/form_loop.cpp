// runtime/form_loop: the form itself. A pass shows which gadget is active, reads a key and acts.
// An action returns whether the form has ended.

#include "runtime/form_loop.h"

#include "common/program.h"
#include "common/text.h"
#include "output/results.h"
#include "runtime/field_editor.h"
#include "runtime/painting.h"
#include "runtime/pick_list.h"
#include "runtime/scroll_keys.h"
#include "runtime/switching.h"
#include "screens/model.h"
#include "term/drawing.h"
#include "term/keys.h"

#include <cstdio>

namespace scrim {

// What lives for one run of the form.
struct form_state {
  bool editmode;        // the active gadget is an edit field, and its editor owns the cursor
  bool swinmode;        // the active gadget is a scroll window, and the line keys act inside it
  bool dotmode;         // the last key was "." on a pop list
  field_cursor cursor;  // in the field being edited
  int oldbx, oldby;     // place of the gadget highlighted last
  int oldbw;            // its width
  int oldbtype;         // its flags
  const char* oldbt;    // its text; null: nothing is to be un-highlighted
};

static const int checkboxes = GF_CHECKBOX | GF_XCHECKBOX;
static const int with_default_action = GF_ETEXT | checkboxes | GF_SWIN | GF_POPLIST;
static const int look_flags = GF_BUTTON | GF_PASSWORD;  // of the flags, those that `stand` knows

static bool is_active(int kind) { return curscrn->blp && kind_of(*curscrn->blp) == kind; }

static void leave_gadget(form_state& form) { form.editmode = form.swinmode = false; }

// The gadget highlighted last may belong to another screen now.
static void forget_highlight(form_state& form) {
  form.oldbt = nullptr;
  form.editmode = false;
}

static void draw_state(int x, int y, const char* text, int w, int flags, int att) {
  if (flags & GF_SWIN) return;
  if ((flags & checkboxes) && *text == '_') {
    stand(x, y, " ", att, 1);
  } else {
    stand(x, y, text, (flags & look_flags) | att, w);
  }
}

static void draw_box_state(const gadget_list& box, int att) {
  stand(box.x, box.y, shown_state(box), att, 1);
}

static void move_to(int gadgetid) {
  if (gadgetid != -1) curscrn->activeg = gadgetid;
}

// Leaving, and actions.

static bool leave(form_state& form, const char* result, int validate) {
  if (!out_modified(validate)) {
    forget_highlight(form);
    return false;
  }
  snprintf(tbuf, sizeof tbuf, "RETN=%s\n", result);
  p_out(tbuf);
  return true;
}

static bool run_action(form_state& form, const char* action, int validate) {
  if (*action != '^' && *action != '<' && *action != '>') return leave(form, action, validate);
  if (*action == '^') {
    DoSubScreen(action);
  } else {
    DoGoToScreen(action);
  }
  forget_highlight(form);
  return false;
}

static bool press(form_state& form, const gadget_list& button) {
  return run_action(form, button.op, button.dbtype & DBT_VALIDATE);
}

static bool confirm(form_state& form, int) {
  const gadget_list* active = curscrn->blp;
  if (active && !(active->flags & with_default_action)) return press(form, *active);
  return run_action(form, curscrn->default_string, curscrn->screentype & ST_VALIDATE);
}

static bool cancel(form_state& form, int) {
  const gadget_list* active = curscrn->blp;
  return leave(form, "cancel", active ? active->dbtype & DBT_VALIDATE : 0);
}

// Pop lists.

static void repaint_without_clearing() {
  const int type = curscrn->screentype;
  curscrn->screentype &= ~ST_CLEAR;
  PaintScreen();
  curscrn->screentype = type;
}

static int entry_equal_to(char** entries, const char* text) {
  for (int i = 0; entries[i]; i++)
    if (std::strcmp(entries[i], text) == 0) return i;
  return 0;
}

static bool open_list(form_state& form, int) {
  if (!is_active(GF_POPLIST)) return false;
  gadget_list& field = *curscrn->blp;
  char** entries = field.list + poplist_entries;
  const int shown = entry_equal_to(entries, field.text);
  largv = field.list + poplist_column;
  stand(form.oldbx, form.oldby, " ", ATT_BRACKET, 1);
  const int picked = do_list(1, shown);
  if (picked >= 0) copy_text(field.text, entries[picked]);
  field.flags |= GF_MODIFIED;
  repaint_without_clearing();
  return false;
}

static int entry_beginning_with(char** entries, std::string_view text) {
  for (int i = 0; entries[i]; i++)
    if (std::string_view(entries[i]).starts_with(text)) return i;
  return 0;
}

// A letter leads to the next entry that begins with it, any other key to the next one.
static int typed_entry(char** entries, int from, int key) {
  if (is_letter(key)) return next_by_letter(entries, from, key);
  return entries[from + 1] ? from + 1 : 0;
}

static bool type_on_list(form_state& form, int key) {
  if (form.dotmode && (key == 'W' || key == 'w')) return open_list(form, key);
  if (key == '.') {
    form.dotmode = true;
    return false;
  }
  gadget_list& field = *curscrn->blp;
  char** entries = field.list + poplist_entries;
  copy_text(field.text,
            entries[typed_entry(entries, entry_beginning_with(entries, field.text), key)]);
  field.flags |= GF_MODIFIED;
  stand(field.x, field.y, field.text, ATT_BRACKET, field.w);
  return false;
}

// Moving between gadgets.

// The line keys act inside a scroll window, and lead from any other gadget to a neighbour.
static bool go_by_line(form_state& form, void (*scroll)(gadget_list&),
                       int gadget_list::*neighbour) {
  gadget_list* active = curscrn->blp;
  if (form.swinmode) {
    scroll(*active);
  } else if (active) {
    move_to(active->*neighbour);
    form.editmode = false;
  }
  return false;
}

static bool go_up(form_state& form, int) { return go_by_line(form, line_up, &gadget_list::up); }

static bool go_down(form_state& form, int) {
  return go_by_line(form, line_down, &gadget_list::down);
}

static bool go_left(form_state& form, int) {
  if (form.editmode) {
    cursor_left(*curscrn->blp, form.cursor);
  } else if (curscrn->blp) {
    move_to(curscrn->blp->left);
    leave_gadget(form);
  }
  return false;
}

static bool go_back(form_state& form, int key) {
  if (!form.editmode) return go_left(form, key);
  backspace(*curscrn->blp, form.cursor);
  return false;
}

static bool go_next(form_state& form, int) {
  if (curscrn->blp) move_to(curscrn->blp->right);
  leave_gadget(form);
  return false;
}

static bool go_right(form_state& form, int key) {
  if (is_active(GF_POPLIST)) return open_list(form, key);
  if (!form.editmode) return go_next(form, key);
  cursor_right(*curscrn->blp, form.cursor);
  return false;
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

static bool go_by_page(form_state& form, void (*scroll)(gadget_list&), char marker) {
  if (form.swinmode) {
    scroll(*curscrn->blp);
  } else {
    turn_page(form, marker);
  }
  return false;
}

static bool page_forward(form_state& form, int) { return go_by_page(form, page_down, '>'); }
static bool page_back(form_state& form, int) { return go_by_page(form, page_up, '<'); }

static const gadget_list* declared_before(const gadget_list* gadget) {
  return gadget->prev ? gadget->prev : gadget_at(*curscrn, curscrn->gadgets - 1);
}

static bool confirm_or_previous(form_state& form, int key) {
  const gadget_list* active = curscrn->blp;
  if (!active) return false;
  if (active->flags & GF_BUTTON) return confirm(form, key);
  const gadget_list* target = declared_before(active);
  while ((target->flags & GF_TEXT) && target != active) target = declared_before(target);
  move_to(target->gadgetid);
  leave_gadget(form);
  return false;
}

static gadget_list* gadget_under(int column, int row) {
  for (gadget_list* t = curscrn->gadget_lp; t; t = t->next) {
    if (t->flags & GF_TEXT) continue;
    if (column >= t->x && column <= t->x + t->w && row >= t->y && row <= t->y + t->h) return t;
  }
  return nullptr;
}

static bool click(form_state& form, int key) {
  const int column = mouse_up[mouse_column], row = mouse_up[mouse_row];
  if (column != mouse_down[mouse_column] || row != mouse_down[mouse_row]) return false;
  gadget_list* target = gadget_under(column, row);
  if (!target) return false;
  move_to(target->gadgetid);
  curscrn->blp = target;
  leave_gadget(form);
  if (target->flags & GF_BUTTON) return press(form, *target);
  return open_list(form, key);
}

// Typing.

static bool press_hot_key(form_state& form, int key) {
  key = lower_case(key);
  for (const gadget_list* gadget = curscrn->gadget_lp; gadget; gadget = gadget->next)
    if (gadget->hotkey && gadget->hotkey == key) return press(form, *gadget);
  return false;
}

static bool type_key(form_state& form, int key) {
  if (is_active(GF_POPLIST)) return type_on_list(form, key);
  if (!form.editmode) return press_hot_key(form, key);
  edit_key(*curscrn->blp, form.cursor, key);
  return false;
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

static bool select_here(form_state& form, int key) {
  if (is_active(GF_CHECKBOX) || is_active(GF_XCHECKBOX)) {
    toggle(*curscrn->blp);
  } else if (is_active(GF_SWIN)) {
    select_line(*curscrn->blp);
  } else {
    return type_key(form, key);
  }
  return false;
}

static bool ignore(form_state&, int) { return false; }

struct form_key {
  int key;
  bool (*action)(form_state&, int key);
};
static const form_key keys[] = {
    {XKEY_UP, go_up},           {key_ctrl_u, go_up},
    {XKEY_DOWN, go_down},       {key_ctrl_d, go_down},
    {XKEY_LEFT, go_left},       {key_ctrl_l, go_left},
    {XKEY_BACKSPACE, go_back},  {XKEY_RIGHT, go_right},
    {key_ctrl_r, go_right},     {XKEY_F3, open_list},
    {key_tab, go_next},         {XKEY_NEXT, page_forward},
    {key_ctrl_n, page_forward}, {XKEY_PREV, page_back},
    {key_ctrl_b, page_back},    {XKEY_F2, cancel},
    {key_ctrl_x, cancel},       {key_escape, cancel},
    {XKEY_MOUSE, click},        {key_return, confirm_or_previous},
    {key_line_feed, confirm},   {XKEY_F1, confirm},
    {' ', select_here},         {XKEY_NULL, ignore},
};

static bool act(form_state& form, int key) {
  for (const form_key& row : keys)
    if (row.key == key) return row.action(form, key);
  return type_key(form, key);
}

// One pass.

static void record(form_state& form, const gadget_list& active) {
  form.oldbx = active.x;
  form.oldby = active.y;
  form.oldbw = active.w;
  form.oldbtype = active.flags;
  form.oldbt = active.text;
}

static void set_mode(form_state& form, const gadget_list& active) {
  const int kind = kind_of(active);
  if (kind == GF_ETEXT && !form.editmode) enter_field(active, form.cursor);
  form.editmode = kind == GF_ETEXT;
  form.swinmode = kind == GF_SWIN;
  if (kind & (GF_BUTTON | checkboxes)) sposition(active.x - 1, active.y);
}

static void show_active(form_state& form) {
  if (form.oldbt && !form.editmode)
    draw_state(form.oldbx, form.oldby, form.oldbt, form.oldbw, form.oldbtype, ATT_BRACKET);
  form.oldbt = nullptr;
  if (!curscrn->blp) {
    leave_gadget(form);
    return;
  }
  const gadget_list& active = *curscrn->blp;
  record(form, active);
  if (!form.editmode) {
    draw_state(active.x, active.y, active.text, active.w, active.flags, ATT_STANDOUT);
    if ((active.flags & GF_SWIN) && curscrn->oldactive != curscrn->activeg)
      sposition(active.x + active.swinx, active.y + active.swiny);
  }
  set_mode(form, active);
}

static bool pass(form_state& form) {
  const int sactv = curscrn->activeg;
  curscrn->blp = gadget_at(*curscrn, sactv);
  show_active(form);
  const int key = get_key();
  const bool ended = act(form, key);
  if (key != '.') form.dotmode = false;
  curscrn->oldactive = sactv;
  return ended;
}

int do_screen() {
  form_state form = {};
  PaintScreen();
  if (curscrn->gadgetc == 0) return 0;
  while (!pass(form)) {
  }
  return 0;
}

}  // namespace scrim
