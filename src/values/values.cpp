// values: named texts from the environment and from the defaults file, and their substitution
// into the lines of screen files. A name is looked up in one of many short chains, so that a
// look-up takes hardly longer where there are many names.

#include "values/values.h"

#include "common/program.h"
#include "common/text.h"
#include "term/endings.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>

namespace scrim {

env_list* env_lp = nullptr;
int envcnt = 0;

static const char* from_environment(std::string_view name) {
  char terminated[scratch_size];
  copy_text(terminated, name);
  const char* value = getenv(terminated);
  return value ? value : "";
}

// A value with its place in the chain of the names that share a hash.
struct chained_value {
  env_list value;
  chained_value* older;  // the next older one of the chain
};

static chained_value* chains[2048];  // the newest value of each

static chained_value*& chain_of(std::string_view name) {
  std::uint32_t hash = 2166136261;  // FNV-1a
  for (const char c : name) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619;
  return chains[hash % std::size(chains)];
}

// The newest value of a name hides the older ones.
static env_list& store(std::string_view name, const char* text) {
  auto* made = static_cast<chained_value*>(
      allocate(sizeof(chained_value), "Can't allocate memory for ENV variable", exit_directive));
  env_list& value = made->value;
  copy_text(value.name, name);
  copy_text(value.text, text);
  value.next = env_lp;
  env_lp = &value;
  chained_value*& newest = chain_of(name);
  made->older = newest;
  newest = made;
  return value;
}

const char* get_an_env(std::string_view name) {
  if (name.size() >= value_name_size) return from_environment(name);
  for (const chained_value* at = chain_of(name); at; at = at->older)
    if (name == at->value.name) return at->value.text;
  return store(name, from_environment(name)).text;
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
