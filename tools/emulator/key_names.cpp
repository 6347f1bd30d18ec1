// emulator/key_names: the table, and what a terminal's description says of a key. <term.h> makes
// macros of many short words, so no header but this file's own stands before it.

#include "tools/emulator/key_names.h"

#include <algorithm>
#include <cstddef>

#include <unistd.h>

#include <curses.h>
#include <term.h>

namespace scrim {

struct key_name {
  const char* name;
  const char* capability;  // terminfo name of the key's string; null: all terminals send `bytes`
  const char* bytes;
};
static const key_name key_names[] = {
    {"Up", "kcuu1", nullptr},      //
    {"Down", "kcud1", nullptr},    //
    {"Left", "kcub1", nullptr},    //
    {"Right", "kcuf1", nullptr},   //
    {"Home", "khome", nullptr},    //
    {"End", "kend", nullptr},      //
    {"PgUp", "kpp", nullptr},      //
    {"PgDn", "knp", nullptr},      //
    {"Ins", "kich1", nullptr},     //
    {"Del", "kdch1", nullptr},     //
    {"BS", "kbs", nullptr},        //
    {"BackTab", "kcbt", nullptr},  //
    {"F1", "kf1", nullptr},        //
    {"F2", "kf2", nullptr},        //
    {"F3", "kf3", nullptr},        //
    {"F4", "kf4", nullptr},        //
    {"F5", "kf5", nullptr},        //
    {"F6", "kf6", nullptr},        //
    {"F7", "kf7", nullptr},        //
    {"F8", "kf8", nullptr},        //
    {"F9", "kf9", nullptr},        //
    {"F10", "kf10", nullptr},      //
    {"F11", "kf11", nullptr},      //
    {"F12", "kf12", nullptr},      //
    {"Tab", nullptr, "\t"},        //
    {"Enter", nullptr, "\r"},      //
    {"LF", nullptr, "\n"},         //
    {"Esc", nullptr, "\033"},      //
    {"Space", nullptr, " "},       //
    {"lt", nullptr, "<"},
};

static typed_bytes described(const key_name& key, const std::string& term) {
  int found = 0;
  if (setupterm(term.c_str(), STDOUT_FILENO, &found) != OK)
    return {"", "no description of the terminal " + term};
  const char* bytes = tigetstr(key.capability);
  const bool absent = !bytes || bytes == reinterpret_cast<char*>(-1);
  typed_bytes typed = {absent ? "" : bytes, ""};
  if (absent) typed.fault = "the terminal " + term + " has no key <" + key.name + ">";
  del_curterm(cur_term);
  return typed;
}

static char control_character(char letter) {
  return letter == '?' ? '\177' : static_cast<char>(letter & 31);
}

static typed_bytes bytes_of_name(const std::string& name, const std::string& term) {
  if (name.size() == 6 && name.starts_with("Ctrl-"))
    return {std::string(1, control_character(name[5])), ""};
  for (const key_name& key : key_names)
    if (name == key.name) return key.bytes ? typed_bytes{key.bytes, ""} : described(key, term);
  return {"", "no key <" + name + ">"};
}

typed_bytes bytes_of(const std::string& piece, const std::string& term) {
  if (!piece.starts_with('<')) return {piece, ""};
  if (!piece.ends_with('>')) return {"", "no > after " + piece + "; <lt> types a <"};
  return bytes_of_name(piece.substr(1, piece.size() - 2), term);
}

std::vector<std::string> pieces_of(const std::string& script) {
  std::vector<std::string> pieces;
  for (std::size_t at = 0, end = 0; at < script.size(); at = end) {
    const bool is_name = script[at] == '<';
    end = std::min(script.find(is_name ? '>' : '<', at), script.size());
    if (is_name && end < script.size()) end++;
    pieces.push_back(script.substr(at, end - at));
  }
  return pieces;
}

std::vector<std::string> characters_of(const std::string& text) {
  std::vector<std::string> characters;
  for (const char byte : text) {
    const bool begun = !characters.empty() && (characters.back()[0] & 0xC0) == 0xC0;
    if (!begun || (byte & 0xC0) != 0x80 || characters.back().size() == 4) characters.emplace_back();
    characters.back() += byte;
  }
  return characters;
}

}  // namespace scrim
