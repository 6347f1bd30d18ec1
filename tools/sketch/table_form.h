// sketch/table_form: draws a form for a row of a table.
#pragma once

#include "tools/sketch/source.h"

#include <string>
#include <vector>

namespace scrim {

// The lines of a sketch with a field for each column of the table that `from` describes, but for
// those that the database fills in. Noted as mistakes are columns without room, which the last
// lines name, and what is wrong with the description. Empty: there is nothing to be drawn.
std::vector<std::string> table_form(source& from);

}  // namespace scrim
