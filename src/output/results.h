// output/results: what was entered, as shell assignments on standard output or as SQL fragments in
// the file that the command line named.
#pragma once

#include "screens/model.h"

#include <cstdio>

namespace scrim {

enum { sql_where = 0x1, sql_update = 0x2, sql_add = 0x4 };
extern int global_flags;  // which SQL files the command line named
extern FILE* wfd;         // conditions of a where clause; open when global_flags has sql_where
extern FILE* ufd;         // assignments of an update; open with sql_update
extern FILE* afd;         // names and values of an insert; open with sql_add
extern int outcount;      // items written to standard output so far

// Writes s to standard output, after a ";" unless it is the first item. Returns the write's result.
int p_out(const char* s);

// Write s to the file of -A, -W or -U. Return the write's result.
int p_sql_add_out(const char* s);
int p_sql_where_out(const char* s);
int p_sql_update_out(const char* s);

// The SQL form of a gadget's value, with the operator that compares it when `incldoper` is 1, in a
// buffer that the next call overwrites. The value goes in as it is.
const char* p_dbtype_cvt(const gadget_list* gadget, int incldoper);

// Writes the value of every modified gadget of every screen (for -A that of every typed edit field
// too), after checking the fields when `checkflag` is not 0. Returns 1, or 0 when a check failed
// and nothing was written.
int out_modified(int checkflag);

}  // namespace scrim
