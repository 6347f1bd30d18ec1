// runtime/validation: the checks that a form passes before its values are written: required fields
// have a value, dates are dates and take their canonical shape, MM/DD/YYYY HH MM SS.
#pragma once

namespace scrim {

constexpr int date_positions = 20;  // positions that check_date is called for

// Checks every field of every screen. Returns 0 when all passed. At the first field that fails,
// shows that field's screen with the field active, then the message, then the screen again, and
// returns 1.
int check_fields();

// Checks position i of the date text `s`, filling in what people leave out: leading zeros, the
// century, the time. Called for positions 0, 1, 2 ... in turn. Returns 0 when the position is
// good, else 1 with `errmsg` at the message.
int check_date(char (&s)[80], int i, const char*& errmsg);

// Checks a whole date text, which is not empty. Returns null when it is good, else the message.
const char* check_date_text(char (&s)[80]);

}  // namespace scrim
