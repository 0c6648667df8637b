// SPDX-License-Identifier: MIT
// Searches PATH for the window program and starts it.
#include "console/window_program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string_view>

namespace requite {
namespace {

constexpr const char* kName = "requite";

bool IsProgram(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && ::access(path.c_str(), X_OK) == 0;
}

}  // namespace

std::string FindWindowProgram() {
  std::error_code ignored;
  const auto self = std::filesystem::read_symlink("/proc/self/exe", ignored);
  if (std::string beside = (self.parent_path() / kName).string(); IsProgram(beside)) return beside;
  const char* const path = std::getenv("PATH");
  std::string_view rest = path == nullptr ? "" : path;
  while (!rest.empty()) {
    const std::string_view folder = rest.substr(0, rest.find(':'));
    rest.remove_prefix(std::min(rest.size(), folder.size() + 1));
    if (folder.empty()) continue;  // would be the current folder
    if (std::string program = std::string(folder) + "/" + kName; IsProgram(program)) return program;
  }
  return {};
}

std::string StartWindowProgram(std::string program) {
  char* const arguments[] = {program.data(), nullptr};
  posix_spawnattr_t attributes;
  posix_spawn_file_actions_t files;
  ::posix_spawnattr_init(&attributes);
  ::posix_spawn_file_actions_init(&files);
  // Signals that this program ignores must not be ignored in the other.
  sigset_t usual;
  sigemptyset(&usual);
  for (const int each : {SIGPIPE, SIGXFSZ}) sigaddset(&usual, each);
  ::posix_spawnattr_setsigdefault(&attributes, &usual);
  ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGDEF);
  // Standard error stays open: the window program reports a missing display there.
  ::posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  ::posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t process = 0;
  const int error = ::posix_spawn(&process, program.c_str(), &files, &attributes, arguments, environ);
  ::posix_spawn_file_actions_destroy(&files);
  ::posix_spawnattr_destroy(&attributes);
  return error == 0 ? std::string() : "\"" + program + "\": " + std::strerror(error);
}

}  // namespace requite
