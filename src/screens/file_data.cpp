// screens/file_data: the file that a scroll window shows, read once.
// The file is read in pieces, whose lines are counted while a piece is still in the processor's
// cache. It may be a pipe, whose size is not known beforehand.

#include "screens/file_data.h"

#include "common/program.h"
#include "common/text.h"
#include "term/endings.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace scrim {

static const std::size_t read_piece = std::size_t{256} << 10;  // bytes of one read
static const std::size_t huge_page = std::size_t{2}
                                     << 20;  // large data is aligned to pages of this size
static const char no_memory[] = "Can't allocate memory for file data";

// Where the data of each scroll window end.
struct end_of_data {
  end_of_data* next;
  const gadget_list* swin;
  const char* end;
};
static end_of_data* ends = nullptr;

// Memory for n bytes of data. A large block is asked for in large pages: the system hands out a few
// of them faster than many small ones.
static char* data_memory(std::size_t n) {
  void* memory = nullptr;
  if (n < huge_page) {
    memory = malloc(n);
  } else if (posix_memalign(&memory, huge_page, n) == 0) {
#ifdef MADV_HUGEPAGE
    madvise(memory, n, MADV_HUGEPAGE);
#endif
  } else {
    memory = nullptr;
  }
  if (!memory) end_with(no_memory, exit_screen);
  return static_cast<char*>(memory);
}

// Counts in a byte, for as many characters as cannot overflow it: such a loop the compiler turns
// into instructions that take many characters at a time.
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
  char* data;  // `size` bytes, of which `used` are read
  std::size_t size;
  std::size_t used;
  std::int64_t newlines;
  bool failed;  // a read has failed
};

// Reads up to n bytes more. Returns false at the end of the data, which is that of the file or a
// NUL, and when a read fails.
static bool read_more(reading& file, char* to, std::size_t n) {
  ssize_t got = 0;
  do {
    got = read(file.fd, to, n);
  } while (got < 0 && errno == EINTR);
  file.failed = got < 0;
  const auto bytes = static_cast<std::size_t>(std::max<ssize_t>(got, 0));
  const void* nul = std::memchr(to, 0, bytes);
  const auto kept = nul ? static_cast<std::size_t>(static_cast<const char*>(nul) - to) : bytes;
  file.newlines += count_newlines(to, kept);
  file.used += kept;
  return bytes > 0 && !nul;
}

// A file that tells no size, as a pipe: makes room when there is more to read.
static bool read_past_size(reading& file) {
  char more = 0;
  if (!read_more(file, &more, 1)) return false;
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
static void read_all(reading& file) {
  struct stat about;
  file.failed = fstat(file.fd, &about) != 0;
  if (file.failed) return;
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
}

bool read_file_data(gadget_list& swin, const char* path) {
  reading file = {};
  file.fd = open(path, O_RDONLY | O_CLOEXEC);
  if (file.fd == -1) return false;
  read_all(file);
  close(file.fd);
  if (file.failed) {
    free(file.data);
    return false;
  }
  auto* end = static_cast<end_of_data*>(allocate(sizeof(end_of_data), no_memory, exit_screen));
  *end = {ends, &swin, file.data + file.used};
  ends = end;
  swin.filedata = file.data;
  swin.l = static_cast<int>(std::min<std::int64_t>(file.newlines, INT_MAX));
  return true;
}

const char* data_end(const gadget_list& swin) {
  const end_of_data* at = ends;
  while (at->swin != &swin) at = at->next;
  return at->end;
}

}  // namespace scrim
