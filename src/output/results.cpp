// output/results: what was entered, as shell assignments or as SQL fragments.
// Each value goes to one place only: the first SQL file asked for, or else standard output.

#include "output/results.h"

#include "common/program.h"
#include "runtime/validation.h"

namespace scrim {

int global_flags = 0;
FILE* wfd = nullptr;
FILE* ufd = nullptr;
FILE* afd = nullptr;
int outcount = 0;

// How a value stands in SQL, by column type; the last row is for numbers and all else.
struct form_row {
  int types;
  const char* comparison;
  const char* before;
  const char* after;
};
static const form_row forms[] = {
    {DBT_CHAR | DBT_VARCHAR2, "like ", "'", "'"},
    {DBT_DATE, "like ", "to_date('", "','MM/DD/YYYY HH24 MI SS')"},
    {~0, "= ", "", ""},
};

int p_out(const char* s) {
  if (outcount++ != 0) putchar(';');
  return fputs(s, stdout);
}

int p_sql_add_out(const char* s) { return fputs(s, afd); }
int p_sql_where_out(const char* s) { return fputs(s, wfd); }
int p_sql_update_out(const char* s) { return fputs(s, ufd); }

const char* p_dbtype_cvt(const gadget_list* gadget, int incldoper) {
  static char converted[1024];
  const int type = gadget->dbtype & DBT_TYPEMASK;
  if (type == DBT_DATE && *gadget->text == '*') return incldoper ? "IS NULL" : "NULL";
  const form_row* form = forms;
  while (form->types != ~0 && !(form->types & type)) form++;
  snprintf(converted, sizeof converted, "%s%s%s%s", incldoper ? form->comparison : "", form->before,
           gadget->text, form->after);
  return converted;
}

// Where values go, the first that the command line named: what stands between name and value, and
// whether the value brings its operator.
struct sql_row {
  int flag;
  const char* between;
  int incldoper;
  int (*write)(const char*);
};
static const sql_row sql_files[] = {
    {sql_add, " ", 0, p_sql_add_out},
    {sql_where, " ", 1, p_sql_where_out},
    {sql_update, " = ", 0, p_sql_update_out},
};

static void write_value(const gadget_list& gadget) {
  for (const sql_row& row : sql_files) {
    if (!(global_flags & row.flag)) continue;
    snprintf(tbuf, sizeof tbuf, "%s%s%.900s\n", gadget.op, row.between,
             p_dbtype_cvt(&gadget, row.incldoper));
    row.write(tbuf);
    return;
  }
  snprintf(tbuf, sizeof tbuf, "%s=\"%s\";export %s", gadget.op, gadget.text, gadget.op);
  p_out(tbuf);
}

static bool is_written(const gadget_list& gadget) {
  if (gadget.flags & GF_MODIFIED) return true;
  return (global_flags & sql_add) && (gadget.flags & GF_ETEXT) && (gadget.dbtype & DBT_TYPEMASK);
}

int out_modified(int checkflag) {
  if (checkflag && check_fields() != 0) return 0;
  for (int i = 0; i < screens; i++)
    for (const gadget_list* gadget = s_screen[i].gadget_lp; gadget; gadget = gadget->next)
      if (is_written(*gadget)) write_value(*gadget);
  return 1;
}

}  // namespace scrim
