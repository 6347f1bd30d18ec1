/* floor FRAME [DATA]: the least that any program of this kind can do, as the measure for the time
   scrim takes. It takes the terminal's description from terminfo, reads the file DATA into memory,
   switches the terminal to raw mode, sends the file FRAME in one write, waits for one byte and puts
   the terminal back. */

#include <fcntl.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <term.h>
#include <termios.h>
#include <unistd.h>

enum { FRAME_SIZE = 1 << 16 };

static char frame[FRAME_SIZE];

/* Fills the frame from a file; returns its length in bytes, or -1. */
static ssize_t read_frame(const char *path) {
  int file = open(path, O_RDONLY | O_CLOEXEC);
  if (file < 0) return -1;
  ssize_t length = read(file, frame, sizeof frame);
  close(file);
  return length;
}

/* Reads a whole file, and does not look at it. In large pages, since many small ones take longer.
   Returns whether all of it was read. */
static int read_data(const char *path) {
  const size_t page = (size_t)2 << 20;
  struct stat about;
  void *data = NULL;
  int file = open(path, O_RDONLY | O_CLOEXEC);
  if (file < 0 || fstat(file, &about) != 0) return 0;
  size_t size = (size_t)about.st_size;
  if (posix_memalign(&data, page, size) != 0) return 0;
  madvise(data, size, MADV_HUGEPAGE);
  ssize_t got = read(file, data, size);
  close(file);
  return got == about.st_size;
}

int main(int argc, char **argv) {
  int error = 0;
  if (argc < 2 || argc > 3 || setupterm(NULL, STDERR_FILENO, &error) != 0) return 1;
  if (argc == 3 && !read_data(argv[2])) return 1;
  ssize_t length = read_frame(argv[1]);
  int tty = open("/dev/tty", O_RDWR | O_CLOEXEC);
  struct termios before;
  if (length < 0 || tty < 0 || tcgetattr(tty, &before) != 0) return 1;

  struct termios raw = before;
  cfmakeraw(&raw);
  tcsetattr(tty, TCSADRAIN, &raw);
  char key = 0;
  int shown = write(STDERR_FILENO, frame, (size_t)length) == length;
  int answered = read(STDIN_FILENO, &key, 1) == 1;
  tcsetattr(tty, TCSADRAIN, &before);
  return shown && answered ? 0 : 1;
}
