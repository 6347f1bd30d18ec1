// screens/windows_and_lists: the directives of scroll windows and pop lists.
// A scroll window's file is read to its end once, in pieces that are counted while they are still
// in the processor's cache; it may be a pipe, whose size nobody knows beforehand.

#include "common/program.h"
#include "common/text.h"
#include "screens/directives.h"
#include "screens/reader.h"
#include "term/endings.h"

#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace scrim {

static const std::size_t read_piece = std::size_t{256} << 10;  // bytes of one read
static const std::size_t huge_page = std::size_t{2}
                                     << 20;  // large data is aligned to pages of this size
static const char no_memory_for_data[] = "Can't allocate memory for file data";
static const char no_memory_for_list[] = "Can't allocate memory for popup list";

[[noreturn]] static void cannot_open(const char* path) {
  snprintf(tbuf, sizeof tbuf, "Can't open '%s'", path);
  end_with(tbuf, exit_screen);
}

// Memory for n bytes of data; a large block in few large pages, which cost less to be given.
static char* data_memory(std::size_t n) {
  void* memory = nullptr;
  if (n < huge_page) {
    memory = malloc(n);
  } else if (posix_memalign(&memory, huge_page, n) == 0) {
    madvise(memory, n, MADV_HUGEPAGE);
  } else {
    memory = nullptr;
  }
  if (!memory) end_with(no_memory_for_data, exit_screen);
  return static_cast<char*>(memory);
}

// Counts in bytes, as many as cannot overflow one, which the compiler does for many at a time.
static std::int64_t count_newlines(const char* data, std::size_t n) {
  const std::size_t block = 240;
  std::int64_t total = 0;
  for (; n >= block; data += block, n -= block) {
    unsigned char sum = 0;
    for (std::size_t i = 0; i < block; i++)
      sum = static_cast<unsigned char>(sum + (data[i] == '\n'));
    total += sum;
  }
  return total + std::count(data, data + n, '\n');
}

// A scroll window's data while they are read.
struct reading {
  int fd;
  const char* path;  // for the message
  char* data;        // `size` bytes, of which `used` are read
  std::size_t size;
  std::size_t used;
  std::int64_t newlines;  // before the first NUL
  bool ended;             // a NUL has come: data end there
};

[[noreturn]] static void cannot_read(const reading& file) {
  close(file.fd);
  free(file.data);
  cannot_open(file.path);
}

// Reads up to n bytes more. Returns false at the end of the data, which is that of the file or a
// NUL.
static bool read_more(reading& file, char* to, std::size_t n) {
  ssize_t got = 0;
  do {
    got = read(file.fd, to, n);
  } while (got < 0 && errno == EINTR);
  if (got < 0) cannot_read(file);
  const auto bytes = static_cast<std::size_t>(got);
  if (bytes > 0) {
    const void* nul = std::memchr(to, 0, bytes);
    file.ended = nul != nullptr;
    file.newlines += count_newlines(
        to, nul ? static_cast<std::size_t>(static_cast<const char*>(nul) - to) : bytes);
  }
  file.used += bytes;
  return bytes > 0 && !file.ended;
}

// A file that tells no size, as a pipe: makes room when there is more to read.
static bool read_past_size(reading& file) {
  char more = 0;
  if (!read_more(file, &more, 1)) {
    file.used = file.size - 1;
    return false;
  }
  const std::size_t size = std::max(2 * file.size, read_piece);
  char* moved = data_memory(size);
  std::memcpy(moved, file.data, file.used - 1);
  free(file.data);
  moved[file.used - 1] = more;
  file.data = moved;
  file.size = size;
  return true;
}

// What another process appends meanwhile to a file that tells its size is not read, or the reading
// might never end. Files under /proc tell a size of 0, but have data.
static void read_data(gadget_list& swin, int fd, const char* path) {
  reading file = {fd, path, nullptr, 0, 0, 0, false};
  struct stat about;
  if (fstat(fd, &about) != 0) cannot_read(file);
  const bool sized = S_ISREG(about.st_mode) && about.st_size > 0;
  file.size = (sized ? static_cast<std::size_t>(about.st_size) : 0) + 1;
  file.data = data_memory(file.size);
  bool more = true;
  while (more) {
    const std::size_t room = file.size - 1 - file.used;
    more = room == 0 ? !sized && read_past_size(file)
                     : read_more(file, file.data + file.used, std::min(read_piece, room));
  }
  file.data[file.used] = 0;
  swin.filedata = file.data;
  swin.l = static_cast<int>(std::min<std::int64_t>(file.newlines, INT_MAX));
}

static void load_file(gadget_list& swin, std::string_view name) {
  char path[scratch_size];
  copy_text(path, name);
  const int fd = open(path, O_RDONLY | O_CLOEXEC);
  if (fd == -1) cannot_open(path);
  read_data(swin, fd, path);
  close(fd);
}

// What painting the rows at once would compute is computed; the cells wait for the first painting.
static void show_rows(gadget_list& swin) {
  follow_cursor(swin);
  draw_rows_at_first(swin);
}

gadget_list* f_swin_core() {
  per_screen& screen = s_screen[curscreen];
  int place[4];
  const char* at = first_item(cbuf);
  next_numbers(at, ",,,", place);
  screen.gadgetc++;
  gadget_list* swin = CreateGadget();
  swin->x = screen.windx + place[0];
  swin->y = screen.windy + place[1];
  swin->w = place[2];
  swin->h = place[3];
  swin->swhigh = -1;
  swin->swinx = swin->swiny = 1;
  const std::string_view file = next_item(at);
  if (at) copy_text(swin->op, std::string_view(at, word_length(at)));
  load_file(*swin, file);
  swin->flags = GF_SWIN;
  draw_frame_at_first(swin->x, swin->y, swin->w, swin->h);
  if (!swdefer) show_rows(*swin);
  screen.last_swin = swin;
  return swin;
}

int f_swin() {
  f_swin_core();
  return 0;
}

int f_dswin() {
  f_swin_core()->flags |= GF_DEFAULT;
  return 0;
}

static gadget_list& last_window(const char* complaint) {
  gadget_list* swin = s_screen[curscreen].last_swin;
  if (!swin) end_with(complaint, exit_screen);
  return *swin;
}

int f_swhigh() {
  gadget_list& swin = last_window("swhigh with no swin");
  const char* argument = first_item(cbuf);
  if (!argument) argument = "";
  if (std::string_view(argument).starts_with("cursor")) {
    swin.flags |= GF_SWHIGH | GF_MODIFIED;
    write_position(swin);
  } else {
    read_number(argument, swin.swhigh, INT_MAX);
  }
  if (!swdefer) show_rows(swin);
  return 0;
}

int f_swpos() {
  gadget_list& swin = last_window("swpos with no swin");
  const char* argument = first_item(cbuf);
  int position[2];  // the cursor's line, lines scrolled off
  read_numbers(argument ? argument : "", ",", position, INT_MAX);
  swin.swoff = std::max(position[1], 0);
  const std::int64_t row = std::int64_t{position[0]} - swin.swoff;
  swin.swiny = static_cast<int>(std::clamp<std::int64_t>(row, -coordinate_limit, coordinate_limit));
  show_rows(swin);
  swdefer = 0;
  return 0;
}

int f_swdefer() {
  swdefer = 1;
  return 0;
}

// The decimal form of n, in memory of its own.
static char* decimal_word(int n) {
  const std::size_t size = 12;
  auto* word = static_cast<char*>(allocate(size, no_memory_for_list, exit_directive));
  snprintf(word, size, "%d", n);
  return word;
}

// Splits the line into its items and returns the longest of those from the third on, in columns.
static std::size_t split_items(char* line, char** items) {
  std::size_t longest = 0;
  for (int i = 0; line; i++) {
    items[i] = line;
    line = std::strchr(line, ':');
    if (line) *line++ = 0;
    if (i >= 2) longest = std::max(longest, std::strlen(items[i]));
  }
  return longest;
}

int f_poplist() {
  const int text_item = 2, name_item = 3;  // until the place of the list takes theirs
  const std::size_t fewest_items = 6;
  per_screen& screen = s_screen[curscreen];
  screen.gadgetc++;
  const std::string_view line = cbuf;
  const auto count = static_cast<std::size_t>(std::count(line.begin(), line.end(), ':')) + 1;
  const std::size_t room = std::max(count, fewest_items) + 1;
  auto** list =
      static_cast<char**>(allocate(room * sizeof(char*), no_memory_for_list, exit_directive));
  auto* copy = static_cast<char*>(allocate(line.size() + 1, no_memory_for_list, exit_directive));
  line.copy(copy, line.size());
  const std::size_t longest = split_items(copy, list);
  if (count < fewest_items) end_with("Not enough parameters for popup list", exit_directive);

  int position[2];
  read_numbers(list[poplist_place], ",", position);
  gadget_list* field = CreateGadget();
  field->flags = GF_POPLIST;
  field->x = screen.windx + position[0];
  field->y = screen.windy + position[1];
  field->w = field->m = static_cast<int>(longest) + 2;
  field->h = 1;
  field->list = list;
  copy_text(field->text, list[*list[text_item] ? text_item : poplist_entries]);
  copy_text(field->op, list[name_item]);
  list[poplist_column] = decimal_word(field->x);
  list[poplist_row] = decimal_word(field->y);
  return 0;
}

}  // namespace scrim
