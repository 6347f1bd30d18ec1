// runtime/validation: the checks that a form passes before its values are written.
// A date is checked position by position, each seeing the text as the ones before it left it.

#include "runtime/validation.h"

#include "common/text.h"
#include "runtime/painting.h"
#include "runtime/switching.h"
#include "screens/model.h"
#include "term/endings.h"

#include <cstddef>
#include <cstdio>
#include <cstring>

namespace scrim {

static const char missing_value[] = "Missing value in required field!";
static const char syntax_error[] = "Syntax error in date field!";
static const char month_error[] = "Month out of range in date field!";
static const char day_error[] = "Day out of range in date field!";

// What each position of a date must hold: 9 a digit, w a digit or "*", anything else itself. The
// first position of a month, a day and the time, and the end of the year, have rules of their own.
static const char date_shape[] = "ww/ww/www9 99 99 99";
enum { month_at = 0, day_at = 3, year_at = 6, century_check_at = 8, time_at = 10 };

static int number_at(const char* text) {
  int number = 0;
  read_number(text, number);
  return number;
}

static bool is_digit(char c) { return c >= '0' && c <= '9'; }

// Inserts `what` before position i; false when it does not fit.
static bool insert_text(char (&s)[80], int i, const char* what) {
  const std::size_t n = std::strlen(what);
  const std::size_t length = std::strlen(s);
  if (length + n >= sizeof s) return false;
  std::memmove(s + i + n, s + i, length - static_cast<std::size_t>(i) + 1);
  std::memcpy(s + i, what, n);
  return true;
}

// A month or a day of one digit gets its zero, a lone "*" its second.
static const char* check_two_digits(char (&s)[80], int i, int limit, const char* range_error) {
  if (!is_digit(s[i]) && s[i] != '*') return syntax_error;
  if (s[i + 1] == '/' && !insert_text(s, i, s[i] == '*' ? "*" : "0")) return syntax_error;
  if (s[i] == '*') return nullptr;
  const int number = number_at(s + i);
  return number < 1 || number > limit ? range_error : nullptr;
}

static const char* check_year_end(char (&s)[80]) {
  const int i = century_check_at;
  if (s[i - 1] == '*') return syntax_error;
  if ((s[i] == 0 || s[i] == ' ') && !insert_text(s, year_at, "19")) return syntax_error;
  return is_digit(s[i]) || s[i] == '*' ? nullptr : syntax_error;
}

static int days_of(int month, int year) {
  switch (month) {
    case 2:
      return year % 4 == 0 ? 29 : 28;
    case 4:
    case 6:
    case 9:
    case 11:
      return 30;
    default:
      return 31;
  }
}

static const char* check_day_of_month(char (&s)[80]) {
  if (s[time_at] == 0 && !insert_text(s, time_at, " 00 00 00")) return syntax_error;
  if (s[time_at] != ' ') return syntax_error;
  if (s[month_at] == '*' || s[day_at] == '*') return nullptr;
  const int days = days_of(number_at(s + month_at), number_at(s + year_at));
  return number_at(s + day_at) > days ? day_error : nullptr;
}

static const char* check_shape(const char (&s)[80], int i) {
  if (i >= static_cast<int>(sizeof date_shape) - 1) return nullptr;
  const char wanted = date_shape[i];
  if (wanted != '9' && wanted != 'w') return s[i] == wanted ? nullptr : syntax_error;
  return is_digit(s[i]) || (wanted == 'w' && s[i] == '*') ? nullptr : syntax_error;
}

int check_date(char (&s)[80], int i, const char*& errmsg) {
  const char* error = nullptr;
  switch (i) {
    case month_at:
      error = check_two_digits(s, i, 12, month_error);
      break;
    case day_at:
      error = check_two_digits(s, i, 31, day_error);
      break;
    case century_check_at:
      error = check_year_end(s);
      break;
    case time_at:
      error = check_day_of_month(s);
      break;
    default:
      error = check_shape(s, i);
      break;
  }
  if (error) errmsg = error;
  return error != nullptr;
}

// "*" for a year may stand alone, as "**", without a time.
static bool ends_in_wildcard(const char (&s)[80], std::size_t length) {
  return std::strlen(s) == length && s[length - 1] == '*';
}

const char* check_date_text(char (&s)[80]) {
  const char* error = nullptr;
  for (int i = 0; i < date_positions; i++) {
    if (i == year_at + 1 && ends_in_wildcard(s, year_at + 1)) insert_text(s, i, "*");
    if (i == century_check_at && ends_in_wildcard(s, century_check_at)) return nullptr;
    if (check_date(s, i, error) != 0) return error;
  }
  return nullptr;
}

static int show_failure(per_screen& screen, gadget_list& field, const char* message) {
  char action[sizeof screen.screenname + 1];
  screen.blp = &field;
  screen.activeg = field.gadgetid;
  snprintf(action, sizeof action, ">%s", screen.screenname);
  DoGoToScreen(action);
  error_pop(message);
  // A first painting lies under the message now: what is drawn only then is drawn once more.
  if (curscrn->paintings == 1) curscrn->paintings = 0;
  PaintScreen();
  return 1;
}

static const char* check_field(gadget_list& field) {
  if (!(field.flags & GF_ETEXT)) return nullptr;
  if (!*field.text) return field.dbtype & DBT_REQUIRED ? missing_value : nullptr;
  if (!(field.dbtype & DBT_DATE)) return nullptr;
  const char* error = check_date_text(field.text);
  if (!error) PaintScreen();
  return error;
}

int check_fields() {
  for (int i = 0; i < screens; i++)
    for (gadget_list* field = s_screen[i].gadget_lp; field; field = field->next)
      if (const char* error = check_field(*field)) return show_failure(s_screen[i], *field, error);
  return 0;
}

}  // namespace scrim
