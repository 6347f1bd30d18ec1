// screens/reader: the screen file being read, its lines, and the items of a line.
// Every line of a file, those of text blocks and comments included, comes through next_line.
#pragma once

#include <cstdio>
#include <string_view>

namespace scrim {

extern FILE* sfp;        // the open screen file
extern int line_number;  // of the line read last from `sfp`, counted from 1; 0: none yet

// Opens a screen file as `sfp`; "stdin" is standard input. Returns false when it cannot be opened
// or is a directory.
bool open_screen_file(const char* path);

// Reads the next line of `sfp` into cbuf, without its newline; a carriage return before that
// belongs to it. Returns false at the end of the file. A line of more than 509 characters ends the
// program with a message and status 3; where something else takes over, the next call skips what is
// left of the line.
bool next_line();

// Reads the next line of a text block and substitutes it into tbuf. Returns false at the line that
// begins with "endtext:", which is taken, or at the end of the file.
bool next_block_line();

// The first item of a directive line: what follows its first ":"; null when it has none.
const char* first_item(const char* line);

// The item at `at`, up to the next ":" or the end of the line; empty when `at` is null. Moves `at`
// behind the ":", or to null when the line has ended.
std::string_view next_item(const char*& at);

// Reads the numbers of the item at `at` as read_numbers does, and moves `at` to the next item.
void next_numbers(const char*& at, const char* separators, int* numbers);

// The length of the word that `text` begins with: up to a blank, a control character or a byte of
// 0x80 or above.
std::size_t word_length(std::string_view text);

}  // namespace scrim
