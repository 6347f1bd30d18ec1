// screens/reader: the screen file being read, its lines, the items of a line, and why a line cannot
// be taken.
// Every line of a file, those of text blocks and comments included, comes through next_line.
#pragma once

#include "common/program.h"

#include <cstddef>
#include <cstdio>
#include <initializer_list>
#include <string_view>

namespace scrim {

extern FILE* sfp;        // the open screen file
extern int line_number;  // of the line read last from `sfp`, counted from 1; 0: none yet

// Why a line cannot be taken. Whoever reads on asks for it after each line: the loader ends the
// program with it.
struct refusal {
  int status;  // exit status; 0: the line is good
  char message[scratch_size + 32];
};
extern refusal refused;

// Notes that the line being read cannot be taken: the exit status, and the parts joined as message.
void refuse(int status, std::initializer_list<std::string_view> parts);

// Opens a screen file as `sfp`; "stdin" is standard input. Returns false when it cannot be opened
// or is a directory.
bool open_screen_file(const char* path);

// Reads the next line of `sfp` into cbuf, without its newline; a carriage return before that
// belongs to it. Returns false at the end of the file, or when the line has more than 509
// characters: such a line is refused, and the call after that begins with the line behind it.
bool next_line();

// Reads the next line of a text block and substitutes it into tbuf. Returns false at the line that
// begins with "endtext:", which is taken, at the end of the file, or when the line is refused.
bool next_block_line();

// The first item of a directive line: what follows its first ":"; null when it has none.
const char* first_item(const char* line);

// The item at `at`, up to the next ":" or the end of the line; empty when `at` is null. Moves `at`
// behind the ":", or to null when the line has ended.
std::string_view next_item(const char*& at);

// The length of the word that `text` begins with: up to a blank, a control character or a byte of
// 0x80 or above.
std::size_t word_length(std::string_view text);

}  // namespace scrim
