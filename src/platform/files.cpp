// SPDX-License-Identifier: MIT
// File operations over the C library, with failures as classic numbers.
#include "platform/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "platform/runtime_failure.h"

namespace requite {
namespace {

constexpr char kSeparator = '/';

[[noreturn]] void ThrowFileFailure(int error) {
  switch (error) {
    case ENOENT: throw RuntimeFailure(Failure::FileNotFound);
    case ENOTDIR: throw RuntimeFailure(Failure::PathNotFound);
    case EACCES:
    case EPERM:
    case EROFS: throw RuntimeFailure(Failure::PermissionDenied);
    case ENOSPC:
    case EDQUOT: throw RuntimeFailure(Failure::DiskFull);
    default: throw RuntimeFailure(Failure::PathFileAccess);
  }
}

/// An open file that is closed when the operation ends.
class FileHandle {
 public:
  FileHandle(const std::string& path, int flags) : fd_(::open(path.c_str(), flags | O_CLOEXEC, 0666)) {
    if (fd_ >= 0) return;
    // A missing folder is another failure than a missing file: only a write can tell them apart here.
    if (errno == ENOENT && (flags & O_CREAT) != 0) throw RuntimeFailure(Failure::PathNotFound);
    ThrowFileFailure(errno);
  }
  ~FileHandle() { ::close(fd_); }
  FileHandle(const FileHandle&) = delete;
  FileHandle& operator=(const FileHandle&) = delete;

  [[nodiscard]] int Descriptor() const { return fd_; }

  void Write(std::string_view text) const {
    while (!text.empty()) {
      const ssize_t written = ::write(fd_, text.data(), text.size());
      if (written < 0 && errno == EINTR) continue;
      if (written < 0) ThrowFileFailure(errno);
      text.remove_prefix(static_cast<std::size_t>(written));
    }
  }

 private:
  int fd_;
};

}  // namespace

std::string ProgramFolder::File(std::string_view name) const { return Path + kSeparator + std::string(name); }

std::optional<std::string_view> LineReader::Next() {
  if (rest_.empty()) return std::nullopt;
  const std::size_t end = ends_ == LineEnds::Any ? rest_.find_first_of("\r\n") : rest_.find('\r');
  const std::string_view line = rest_.substr(0, end);
  if (end == std::string_view::npos) {
    rest_ = {};
    return line;
  }
  const bool pair = rest_.substr(end, 2) == "\r\n";
  rest_.remove_prefix(end + (pair ? 2 : 1));
  return line;
}

std::string ReadFile(const std::string& path) {
  const FileHandle file(path, O_RDONLY);
  struct stat status {};
  if (::fstat(file.Descriptor(), &status) != 0) ThrowFileFailure(errno);
  if (S_ISDIR(status.st_mode)) throw RuntimeFailure(Failure::PathFileAccess);
  std::string text(static_cast<std::size_t>(status.st_size), '\0');
  std::size_t filled = 0;
  for (;;) {
    if (filled == text.size()) text.resize(text.size() + 4096);
    const ssize_t count = ::read(file.Descriptor(), text.data() + filled, text.size() - filled);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) ThrowFileFailure(errno);
    if (count == 0) break;
    filled += static_cast<std::size_t>(count);
  }
  text.resize(filled);
  return text;
}

void WriteFile(const std::string& path, std::string_view text) {
  FileHandle(path, O_WRONLY | O_CREAT | O_TRUNC).Write(text);
}

void AppendToFile(const std::string& path, std::string_view text) {
  FileHandle(path, O_WRONLY | O_CREAT | O_APPEND).Write(text);
}

void DeleteFile(const std::string& path) {
  if (::unlink(path.c_str()) != 0) ThrowFileFailure(errno);
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

void xcopyFile(const std::string& source, const std::string& target) {
  std::error_code ignored;
  std::filesystem::copy_file(source, target, std::filesystem::copy_options::overwrite_existing, ignored);
}

std::string FileNameOfPath(std::string_view path) {
  const std::size_t at = path.rfind(kSeparator);
  return std::string(at == std::string_view::npos ? path : path.substr(at + 1));
}

}  // namespace requite
