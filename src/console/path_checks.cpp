// SPDX-License-Identifier: MIT
// Checks of paths that change nothing.
#include "console/path_checks.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

namespace requite {
namespace {

std::string Words(const std::string& path, int error) { return "\"" + path + "\": " + std::strerror(error); }

bool IsFolder(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::string FolderOf(const std::string& path) { return std::filesystem::path(path).parent_path().string(); }

}  // namespace

std::string AbsolutePath(const std::string& path) {
  if (path.empty()) return path;
  std::error_code ignored;
  std::string absolute = std::filesystem::absolute(path, ignored).lexically_normal().string();
  while (absolute.size() > 1 && absolute.back() == '/') absolute.pop_back();
  return absolute;
}

std::string WhyNotReadable(const std::string& path) {
  if (IsFolder(path)) return Words(path, EISDIR);
  // access() instead of open(): opening a pipe could wait for its other end.
  return ::access(path.c_str(), R_OK) == 0 ? std::string() : Words(path, errno);
}

std::string WhyNotWritable(const std::string& path) {
  if (path.empty()) return {};
  if (IsFolder(path)) return Words(path, EISDIR);
  if (::access(path.c_str(), W_OK) == 0) return {};
  if (errno != ENOENT) return Words(path, errno);
  const std::string folder = FolderOf(path);
  return ::access(folder.c_str(), W_OK | X_OK) == 0 ? std::string() : Words(folder, errno);
}

std::string WhyNoSettings(const std::string& path) {
  if (path.empty()) return {};
  // The store creates its folder, so some folder above it must exist.
  std::string folder = FolderOf(path);
  if (::access(folder.c_str(), F_OK) == 0) return WhyNotWritable(path);
  while (folder.size() > 1 && ::access(folder.c_str(), F_OK) != 0 && errno == ENOENT)
    folder = FolderOf(folder);
  return ::access(folder.c_str(), W_OK | X_OK) == 0 ? std::string() : Words(folder, errno);
}

std::string WhyNoCopy(const std::string& path) {
  return ::access(path.c_str(), F_OK) == 0 ? WhyNotReadable(path) : std::string();
}

std::string WhyNoFolder(const std::string& path) {
  if (path.empty() || IsFolder(path)) return {};
  return Words(path, ::access(path.c_str(), F_OK) == 0 ? ENOTDIR : errno);
}

std::string WhyNoProgramFolder(const std::string& folder) {
  if (::access(folder.c_str(), W_OK | X_OK) != 0) return "the program's folder " + Words(folder, errno);
  if (std::string why = WhyNotReadable(folder + "/filetypes.txt"); !why.empty()) {
    return "the program's folder lacks its file list " + why;
  }
  if (!IsFolder(folder + "/Project Files")) {
    return "the program's folder lacks " + Words(folder + "/Project Files", ENOENT);
  }
  return {};
}

}  // namespace requite
