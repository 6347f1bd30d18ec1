// term/keys: turns the bytes that a terminal sends into one key at a time.
// Bytes are read one by one, and only as far as some key's sequence asks for them.

#include "term/keys.h"

#include "common/program.h"
#include "common/text.h"
#include "term/capabilities.h"
#include "term/leaving.h"
#include "term/tty.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <iterator>

#include <poll.h>
#include <unistd.h>

namespace scrim {

int mouse_down[mouse_fields];
int mouse_up[mouse_fields];

const skt specialktext[] = {
    {XKEY_UP, "XKEY_UP"},       {XKEY_DOWN, "XKEY_DOWN"},     {XKEY_LEFT, "XKEY_LEFT"},
    {XKEY_RIGHT, "XKEY_RIGHT"}, {XKEY_DELETE, "XKEY_DELETE"}, {XKEY_BACKSPACE, "XKEY_BACKSPACE"},
    {XKEY_NEXT, "XKEY_NEXT"},   {XKEY_PREV, "XKEY_PREV"},     {XKEY_MOUSE, "XKEY_MOUSE"},
    {XKEY_NULL, "XKEY_NULL"},   {XKEY_F1, "XKEY_F1"},         {XKEY_F2, "XKEY_F2"},
    {XKEY_F3, "XKEY_F3"},       {XKEY_F4, "XKEY_F4"},         {0, ""},
};
static_assert(std::size(specialktext) == XKEY_F4 - XKEY_UP + 2, "a name for each code");

static const int report_start = 2;   // where the text of a mouse report begins
static const int report_limit = 23;  // the last position that may hold its "X"
static const int press_button = 2;   // the button field of a press

static char key[40];                 // bytes of the key in progress, then bytes to hand out
static std::int16_t xkey_index = 0;  // how many bytes of `key` are in use
static bool silent = false;          // a timed read has expired within this key

enum read_result { got_byte, got_silence, got_end };

// The key descriptor may be a pipe or a file, or be set not to wait: the line settings alone do
// not time such a read.
static bool await_byte(bool timed) {
  pollfd input = {tty_fd, POLLIN, 0};
  int ready = 0;
  do {
    ready = poll(&input, 1, timed ? ftimeout * 100 : -1);
  } while (ready < 0 && errno == EINTR);
  return ready != 0;
}

static read_result read_byte(bool timed) {
  if (timed && !await_byte(true)) return got_silence;
  for (;;) {
    const ssize_t n = read(tty_fd, key + xkey_index, 1);
    if (n == 1) {
      xkey_index++;
      return got_byte;
    }
    if (n == 0) return timed ? got_silence : got_end;
    if (errno == EAGAIN) {
      if (!await_byte(timed)) return got_silence;
    } else if (errno != EINTR) {
      return got_end;
    }
  }
}

// One more byte of the key in progress; false when none came in time. After one silence the key
// has no further bytes.
static bool read_more() {
  if (silent || xkey_index == sizeof key) return false;
  read_timed();
  silent = read_byte(true) != got_byte;
  return !silent;
}

// Whether the key's bytes are the whole sequence and nothing else. Reads on while they are only its
// beginning.
static bool completes(const char* sequence) {
  const std::size_t length = std::strlen(sequence);
  if (length == 0 || length > sizeof key) return false;
  for (;;) {
    const auto received = static_cast<std::size_t>(xkey_index);
    if (received > length || std::memcmp(key, sequence, received) != 0) return false;
    if (received == length) return true;
    if (!read_more()) return false;
  }
}

enum report_result { report_complete, report_broken, report_too_long };

static report_result read_report() {
  for (;;) {
    if (!read_more()) return report_broken;
    if (key[xkey_index - 1] == 'X') return report_complete;
    if (xkey_index > report_limit) return report_too_long;
  }
}

// Stores a report's numbers; a number that cannot be read leaves the last report's in its place.
static std::int16_t take_report() {
  int fields[mouse_fields];
  key[xkey_index - 1] = 0;
  const int count = read_numbers(key + report_start, ";;", fields);
  const bool press = count > 0 && fields[mouse_button] == press_button;
  std::copy_n(fields, count, press ? mouse_down : mouse_up);
  return specialkeys(press ? slot_function : slot_mouse);
}

static std::int16_t hand_out() {
  const int byte = static_cast<unsigned char>(key[0]);
  std::memmove(key, key + 1, static_cast<std::size_t>(--xkey_index));
  if (xkey_index == 0) read_blocking();
  return static_cast<std::int16_t>(byte < 0x80 ? byte : byte - 0x100);
}

static std::int16_t recognised(std::int16_t code) {
  xkey_index = 0;
  read_blocking();
  return code;
}

// Decodes one key. Returns false when what came was a broken mouse report, which is dropped.
static bool decode(std::int16_t& result) {
  for (int slot = 0; slot < key_slots; slot++) {
    if (!xkey_incodes[slot] || !completes(xkey_incodes[slot])) continue;
    if (slot != slot_mouse) {
      result = recognised(specialkeys(slot));
      return true;
    }
    const report_result report = read_report();
    if (report == report_complete) {
      result = recognised(take_report());
      return true;
    }
    if (report == report_broken) {
      recognised(0);
      return false;
    }
  }
  result = hand_out();
  return true;
}

bool read_key(std::int16_t& result) {
  keypad_on();
  if (xkey_index > 0) {
    result = hand_out();
    return true;
  }
  do {
    silent = false;
    if (read_byte(false) == got_end) return false;
  } while (!decode(result));
  return true;
}

std::int16_t get_key() {
  std::int16_t result = 0;
  if (!read_key(result)) win_exit(exit_keys_ended);
  return result;
}

}  // namespace scrim
