// SPDX-License-Identifier: MIT
// The claim is a lock on the folder itself: it needs no file of its own, and a killed program loses it.
#include "platform/work_folder.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/file.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <utility>

namespace requite {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPrivateName = "scan-";
constexpr std::string_view kPrivatePattern = "scan-XXXXXX";
constexpr std::array<const char*, 3> kWorkFiles = {"html0.txt", "html20.txt", "tempreport.html"};

/// A descriptor that holds the lock of a folder, or -1 with `errno`: EWOULDBLOCK when another program has it.
int LockFolder(const std::string& path) {
  const int folder = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW);
  if (folder < 0) return -1;
  if (::flock(folder, LOCK_EX | LOCK_NB) == 0) return folder;
  const int error = errno;
  ::close(folder);
  errno = error;
  return -1;
}

/// Leaves a folder with anything else in it.
void RemoveFolder(const std::string& path) {
  for (const char* name : kWorkFiles) ::unlink((path + "/" + name).c_str());
  ::rmdir(path.c_str());
}

}  // namespace

WorkFolder::~WorkFolder() {
  if (!private_.empty()) RemoveFolder(private_);
  if (claim_ >= 0) ::close(claim_);
}

void WorkFolder::Claim() {
  if (claim_ >= 0) return;
  claim_ = LockFolder(fs::path(program_.Path) / ".");
  if (claim_ < 0 && errno == EWOULDBLOCK) MakePrivate();
}

void WorkFolder::Release() {
  // The private folder keeps its lock: that is how others know that it is in use.
  if (claim_ >= 0 && private_.empty()) ::close(std::exchange(claim_, -1));
}

void WorkFolder::MakePrivate() {
  RemoveLeftovers();
  std::string path = program_.File(kPrivatePattern);
  if (::mkdtemp(path.data()) == nullptr) return;
  claim_ = LockFolder(path);
  if (claim_ >= 0) private_ = std::move(path);
}

/// Leftovers are folders of killed programs: nobody holds their lock.
void WorkFolder::RemoveLeftovers() const {
  std::error_code failed;
  for (fs::directory_iterator one(program_.Path, failed), end; !failed && one != end; one.increment(failed)) {
    const std::string name = one->path().filename().string();
    if (!name.starts_with(kPrivateName) || name.size() != kPrivatePattern.size()) continue;
    const int lock = LockFolder(one->path().string());
    if (lock < 0) continue;
    RemoveFolder(one->path().string());
    ::close(lock);
  }
}

std::string WorkFolder::File(std::string_view name) const {
  return private_.empty() ? program_.File(name) : ProgramFolder{private_}.File(name);
}

}  // namespace requite
