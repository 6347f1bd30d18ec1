// values: named texts from the environment and from the defaults file, and their substitution
// into the lines of screen files.

#include "values/values.h"

#include "common/program.h"
#include "common/text.h"
#include "term/endings.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace scrim {

env_list* env_lp = nullptr;
int envcnt = 0;

static const char* from_environment(std::string_view name) {
  char terminated[scratch_size];
  copy_text(terminated, name);
  const char* value = getenv(terminated);
  return value ? value : "";
}

// The newest value of a name hides the older ones.
static env_list* store(std::string_view name, const char* text) {
  auto* value = static_cast<env_list*>(
      allocate(sizeof(env_list), "Can't allocate memory for ENV variable", exit_directive));
  copy_text(value->name, name);
  copy_text(value->text, text);
  value->next = env_lp;
  env_lp = value;
  return value;
}

const char* get_an_env(std::string_view name) {
  if (name.size() >= value_name_size) return from_environment(name);
  for (const env_list* value = env_lp; value; value = value->next)
    if (name == value->name) return value->text;
  return store(name, from_environment(name))->text;
}

void set_alt_an_env(const char* line) {
  char name[value_name_size];
  snprintf(name, sizeof name, "%d", envcnt++);
  store(name, line);
}

void env_substitute(const char* text) {
  char* to = tbuf;
  char* const end = tbuf + sizeof tbuf - 1;
  auto append = [&](char c) {
    if (to < end) *to++ = c;
  };
  while (*text) {
    if (text[0] == '$' && text[1] == '{') {
      text += 2;
      const std::string_view name(text, std::strcspn(text, "}"));
      text += name.size();
      if (*text) text++;
      for (const char* value = get_an_env(name); *value; value++) append(*value);
    } else if (text[0] == '\\' && text[1]) {
      append(text[1] == '\\' ? '\\' : static_cast<char>(text[1] | 0x80));
      text += 2;
    } else {
      append(*text++);
    }
  }
  *to = 0;
}

}  // namespace scrim
