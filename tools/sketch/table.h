// sketch/table: reads what a database says of a table: the statement that makes it, as sqlite3's
// ".schema TABLE" prints it, or the list of its columns, as psql's "\d TABLE" does.
#pragma once

#include "tools/sketch/sketch.h"
#include "tools/sketch/source.h"

#include <string>
#include <vector>

namespace scrim {

struct table_column {
  std::string name;
  std::string type;        // in small letters, with its size: "numeric(10,2)"; empty: none
  bool not_null = false;   // the column itself, or a primary key, says so
  bool filled_in = false;  // by the database alone: counted, or computed from other columns
  bool computed = false;   // an expression gives the value when a row does not
  std::string value = {};  // the constant that does
  place where = {};
};

struct table_description {
  std::string name;  // without its schema
  std::vector<table_column> columns;
};

// Reads the first table that `from` describes. Notes as mistakes that there is none, or one more,
// or that its end is missing.
table_description read_table(source& from);

}  // namespace scrim
