// term/tty: the three descriptors of the program, the line settings, and the functions through
// which all bytes reach the terminal. Drawing goes to standard error, keys come from `tty_fd`, line
// settings are those of /dev/tty; standard output stays free for the results.
#pragma once

#include "term/line_settings.h"

#include <cstddef>

namespace scrim {

extern int tfd;     // /dev/tty, opened on first use and never closed; -1 until then
extern int tty_fd;  // where keys are read: 0, or tfd when the screen file is standard input
extern line_settings terminal_old;  // the user's settings, as found when the terminal was opened
extern line_settings terminal_new;  // those of raw mode; their read mode changes with the reads
extern int ttym;                    // 1 while the capabilities are loaded, 0 after restore_ttymode
extern int stdin_flag;              // 1: the screen file is standard input, keys come from /dev/tty
extern int debug_flag;              // 1: setup_ttymode prints the input flags it found
extern int ftimeout;  // longest pause between two bytes of one key, tenths of a second

extern char* T_KEYXMIT;   // puts the keypad into transmit mode, so that keys send what is described
extern char* T_KEYLOCAL;  // takes the keypad out of transmit mode

// Opens /dev/tty if need be, keeps the user's settings and applies raw mode.
// Returns 0, or 1 when there is no terminal to open.
int setup_ttymode();

// Whether the terminal is in raw mode.
bool is_raw();

// Takes the keypad out of transmit mode, leaves raw mode and puts the user's settings back.
// Returns the result of the last request: 0, or -1.
int restore_ttymode();

// From now on a read of keys blocks until there is a byte.
void read_blocking();

// From now on a read of keys returns a byte, or nothing after `ftimeout` tenths of a second of
// silence.
void read_timed();

// Sends T_KEYXMIT once, before the first wait for a key.
void keypad_on();

// Sends one capability string and flushes it. A null string sends nothing.
// Returns the flush status, 0 on success.
int M_putp(const char* s);

// Writes one character to the buffered standard error stream. Returns it, or EOF.
int m_out(char c);

// Writes n bytes straight to descriptor 2, in one write unless the terminal takes only a part.
// Returns n, or -1 when the terminal takes nothing.
int write_terminal(const char* bytes, std::size_t n);

}  // namespace scrim
