// SPDX-License-Identifier: MIT
// The pieces of a file, on the C library.
#include "platform/piece_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace requite {

PieceFile::PieceFile(const std::string& path) {
  if (Open(path, 0)) return;
  ::unlink(path.c_str());
  failed_ = !Open(path, O_EXCL);
}

/// Opens without waiting: a pipe that nobody reads must not block the program.
bool PieceFile::Open(const std::string& path, int more) {
  fd_ = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOCTTY | more, 0666);
  if (fd_ < 0) return false;
  struct stat status {};
  if (::fstat(fd_, &status) == 0 && S_ISREG(status.st_mode)) {
    oldSize_ = static_cast<std::size_t>(status.st_size);
    return true;
  }
  ::close(std::exchange(fd_, -1));
  return false;
}

bool PieceFile::Write(std::string_view piece) {
  while (!failed_ && !piece.empty()) {
    const ssize_t count = ::write(fd_, piece.data(), piece.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) {
      failed_ = true;
      break;
    }
    written_ += static_cast<std::size_t>(count);
    piece.remove_prefix(static_cast<std::size_t>(count));
  }
  return !failed_;
}

bool PieceFile::Finish() {
  if (fd_ < 0) return !failed_;
  if (oldSize_ > written_ && ::ftruncate(fd_, static_cast<off_t>(written_)) != 0) failed_ = true;
  if (::close(std::exchange(fd_, -1)) != 0) failed_ = true;
  return !failed_;
}

}  // namespace requite
