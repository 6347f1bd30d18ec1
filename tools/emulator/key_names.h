// emulator/key_names: the one table of the names of keys, for all that types keys by name. A key
// script is text, which stands for itself, and names: "abc<Left><Del>x<Enter>".
#pragma once

#include <string>
#include <vector>

namespace scrim {

// The pieces of a key script in their order: those of "ab<Left>c" are "ab", "<Left>" and "c".
std::vector<std::string> pieces_of(const std::string& script);

// The characters of a text: sequences of UTF-8, and other bytes alone.
std::vector<std::string> characters_of(const std::string& text);

struct typed_bytes {
  std::string bytes;
  std::string fault;  // why there are no bytes; empty: there are
};

// What a piece of a key script types on the terminal `term`: text itself, a name the bytes of that
// key, as the terminal's description has them.
typed_bytes bytes_of(const std::string& piece, const std::string& term);

}  // namespace scrim
