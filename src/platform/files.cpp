// SPDX-License-Identifier: MIT
// File operations on the C library; failures become the classic numbers.
#include "platform/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/runtime_failure.h"
#include "platform/text.h"

namespace requite {
namespace {

constexpr char kSeparator = '/';

bool FolderExists(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// A missing folder and a missing file in it are different failures.
bool LiesInFolder(const std::string& path) {
  const std::size_t at = path.rfind(kSeparator);
  return at == std::string::npos || FolderExists(path.substr(0, at + 1));
}

/// An open file that is closed when the operation ends. Opening does not wait: a pipe that
/// nobody reads or writes must not block the program.
class FileHandle {
 public:
  FileHandle(const std::string& path, int flags)
      : path_(path), fd_(::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0666)) {
    if (fd_ < 0) ThrowFileFailure(path, errno);
  }
  ~FileHandle() {
    if (fd_ >= 0) ::close(fd_);
  }
  FileHandle(const FileHandle&) = delete;
  FileHandle& operator=(const FileHandle&) = delete;

  [[nodiscard]] int Descriptor() const { return fd_; }

  void Write(std::string_view text) const { WriteBytes(fd_, path_, text); }

  /// Some file systems report a full disk only here.
  void Close() {
    if (::close(std::exchange(fd_, -1)) != 0) ThrowFileFailure(path_, errno);
  }

  /// Drops everything after the first `size` bytes.
  void CutAt(std::size_t size) const {
    struct stat status {};
    if (::fstat(fd_, &status) != 0) ThrowFileFailure(path_, errno);
    if (static_cast<std::size_t>(status.st_size) <= size) return;
    if (::ftruncate(fd_, static_cast<off_t>(size)) != 0) ThrowFileFailure(path_, errno);
  }

 private:
  const std::string& path_;
  int fd_;
};

/// Removes what was added to a normal file after its first `size` bytes.
void TakeBack(const std::string& path, off_t size) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return;
  const int result = size == 0 ? ::unlink(path.c_str()) : ::truncate(path.c_str(), size);
  static_cast<void>(result);  // the failure before this one is told
}

}  // namespace

void ThrowFileFailure(const std::string& path, int error) {
  switch (error) {
    case ENOENT: throw RuntimeFailure(LiesInFolder(path) ? Failure::FileNotFound : Failure::PathNotFound);
    case ENOTDIR: throw RuntimeFailure(Failure::PathNotFound);
    case EACCES:
    case EPERM:
    case EROFS: throw RuntimeFailure(Failure::PermissionDenied);
    case ENOSPC:
    case EDQUOT: throw RuntimeFailure(Failure::DiskFull);
    default: throw RuntimeFailure(Failure::PathFileAccess);
  }
}

void WriteBytes(int descriptor, const std::string& path, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = ::write(descriptor, text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) ThrowFileFailure(path, errno);
    text.remove_prefix(static_cast<std::size_t>(written));
  }
}

std::string ProgramFolder::File(std::string_view name) const { return Path + kSeparator + std::string(name); }

std::size_t LineReader::EndOfLine() {
  if (ends_ == LineEnds::CarriageReturn) return rest_.find('\r');
  // The next LF is remembered: in a text with few of them, each call would search to the end.
  if (lineFeed_ == nullptr || lineFeed_ < rest_.data()) {
    const std::size_t at = rest_.find('\n');
    lineFeed_ = rest_.data() + std::min(at, rest_.size());
  }
  const auto untilFeed = static_cast<std::size_t>(lineFeed_ - rest_.data());
  const std::size_t carriageReturn = rest_.substr(0, untilFeed).find('\r');
  if (carriageReturn != std::string_view::npos) return carriageReturn;
  return untilFeed < rest_.size() ? untilFeed : std::string_view::npos;
}

std::optional<std::string_view> LineReader::Next() {
  if (rest_.empty()) return std::nullopt;
  const std::size_t end = EndOfLine();
  const std::string_view line = rest_.substr(0, end);
  if (end == std::string_view::npos) {
    rest_ = {};
    return line;
  }
  const bool pair = rest_.substr(end, 2) == kLineEnd;
  rest_.remove_prefix(end + (pair ? 2 : 1));
  return line;
}

std::string ReadFile(const std::string& path) {
  constexpr off_t kLongestText = 0x7FFFFFFF;
  const FileHandle file(path, O_RDONLY);
  struct stat status {};
  if (::fstat(file.Descriptor(), &status) != 0) ThrowFileFailure(path, errno);
  if (!S_ISREG(status.st_mode)) throw RuntimeFailure(Failure::PathFileAccess);
  if (status.st_size > kLongestText) throw RuntimeFailure(Failure::OutOfMemory);
  // One byte more than the file has, so that the first read finds the end.
  std::string text(static_cast<std::size_t>(status.st_size) + 1, '\0');
  std::size_t filled = 0;
  for (;;) {
    if (filled == text.size()) text.resize(text.size() * 2);
    const ssize_t count = ::read(file.Descriptor(), text.data() + filled, text.size() - filled);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) ThrowFileFailure(path, errno);
    if (count == 0) break;
    filled += static_cast<std::size_t>(count);
  }
  text.resize(filled);
  return text;
}

void WriteFile(const std::string& path, std::string_view text) {
  FileHandle(path, O_WRONLY | O_CREAT | O_TRUNC).Write(text);
}

void OverwriteFile(const std::string& path, std::string_view text) {
  const FileHandle file(path, O_WRONLY | O_CREAT);
  file.Write(text);
  file.CutAt(text.size());
}

void AppendToFile(const std::string& path, std::string_view text) {
  FileHandle file(path, O_WRONLY | O_CREAT | O_APPEND);
  const off_t size = ::lseek(file.Descriptor(), 0, SEEK_END);
  try {
    file.Write(text);
    file.Close();
  } catch (const RuntimeFailure&) {
    if (size >= 0) TakeBack(path, size);
    throw;
  }
}

void DeleteFile(const std::string& path) {
  if (::unlink(path.c_str()) != 0) ThrowFileFailure(path, errno);
}

bool FileExists(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

bool xfileExists(const std::string& path) {
  struct stat status {};
  const std::string name = FileNameOfPath(path);
  const bool hidden = name.starts_with('.');
  return !hidden && ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

std::string FileNameOfPath(std::string_view path) {
  const std::size_t at = path.rfind(kSeparator);
  return std::string(at == std::string_view::npos ? path : path.substr(at + 1));
}

}  // namespace requite
