// SPDX-License-Identifier: MIT
// Temporary file, flush, rename, flush of the folder; and the order of these around a backup.
#include "platform/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <utility>

#include "platform/runtime_failure.h"

namespace requite {
namespace {

constexpr int kMostLinks = 40;
constexpr int kMostNames = 1000;
constexpr mode_t kPermissionBits = 07777;

/// The folder, ending in a separator; empty for the current folder.
std::string FolderOf(const std::string& path) { return path.substr(0, path.rfind('/') + 1); }

/// Follows links of the last name only; the system follows those of the folders.
std::string BehindLinks(std::string path) {
  for (int i = 0; i < kMostLinks; ++i) {
    std::error_code error;
    const std::string next = std::filesystem::read_symlink(path, error).string();
    if (error) return path;
    if (next.starts_with('/')) path.clear();
    path.erase(path.rfind('/') + 1).append(next);
  }
  ThrowFileFailure(path, ELOOP);
}

void FlushFolder(const std::string& folder) {
  const std::string& path = folder.empty() ? "." : folder;
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  // A folder that may be written but not read (mode 0300) cannot be flushed alone.
  if (descriptor < 0 && errno == EACCES) return ::sync();
  if (descriptor < 0) ThrowFileFailure(path, errno);
  const int error = ::fsync(descriptor) == 0 ? 0 : errno;
  ::close(descriptor);
  // Some file systems cannot flush a folder; they keep its names safe by themselves.
  if (error != 0 && error != EINVAL && error != ENOTSUP) ThrowFileFailure(path, error);
}

/// A name that no other process and no other file of this process uses.
std::string TemporaryName(const std::string& folder) {
  static unsigned count = 0;
  return folder + ".requite-" + std::to_string(::getpid()) + "-" + std::to_string(++count);
}

void DeleteQuietly(const std::string& path) { ::unlink(path.c_str()); }

/// Gives the file a second name, replacing an older file of that name. False where the file system has no
/// hard links, or the two names are on different ones.
bool LinkOver(const std::string& path, const std::string& target) {
  const std::string unused = TemporaryName(FolderOf(target));
  if (::link(path.c_str(), unused.c_str()) != 0) return false;
  const bool renamed = ::rename(unused.c_str(), target.c_str()) == 0;
  const int error = errno;
  // A rename between two names of one file does nothing.
  DeleteQuietly(unused);
  if (!renamed) ThrowFileFailure(target, error);
  return true;
}

}  // namespace

WholeFile::WholeFile(const std::string& path) : target_(BehindLinks(path)) {
  struct stat status {};
  if (::stat(target_.c_str(), &status) != 0) return;
  replaces_ = true;
  rights_ = RightsOf(status);
}

/// Throws for anything but a normal file.
WholeFile::Rights WholeFile::RightsOf(const struct stat& status) {
  if (!S_ISREG(status.st_mode)) throw RuntimeFailure(Failure::PathFileAccess);
  return {status.st_mode & kPermissionBits, status.st_uid, status.st_gid};
}

WholeFile::~WholeFile() {
  if (descriptor_ >= 0) ::close(descriptor_);
  if (!temporary_.empty()) DeleteQuietly(temporary_);
}

void WholeFile::Open() {
  // Nobody who could not read the old text may read the new one, not even for a moment.
  const mode_t mode = rights_ ? 0600 : 0666;
  for (int i = 0; i < kMostNames && descriptor_ < 0; ++i) {
    temporary_ = TemporaryName(FolderOf(target_));
    descriptor_ = ::open(temporary_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (descriptor_ < 0 && errno != EEXIST) break;
  }
  if (descriptor_ >= 0) return TakeOverRights();
  temporary_.clear();
  ThrowFileFailure(target_, errno);
}

void WholeFile::TakeOverRights() const {
  if (!rights_) return;
  struct stat status {};
  if (::fstat(descriptor_, &status) != 0) ThrowFileFailure(target_, errno);
  const bool foreign = status.st_uid != rights_->Owner || status.st_gid != rights_->Group;
  mode_t mode = rights_->Mode;
  // The old group's rights are not meant for another group, which gets everybody's rights.
  if (foreign && ::fchown(descriptor_, rights_->Owner, rights_->Group) != 0 &&
      status.st_gid != rights_->Group) {
    mode = (mode & ~mode_t{S_IRWXG}) | (mode & mode_t{S_IRWXO}) << 3U;
  }
  if (::fchmod(descriptor_, mode) != 0) ThrowFileFailure(target_, errno);
}

void WholeFile::Write(std::string_view text) {
  if (descriptor_ < 0) Open();
  WriteBytes(descriptor_, target_, text);
}

void WholeFile::CopyFrom(const std::string& path) {
  const int source = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (source < 0) ThrowFileFailure(path, errno);
  const struct Closer {
    int Descriptor;
    ~Closer() { ::close(Descriptor); }
  } closer{source};
  struct stat status {};
  if (::fstat(source, &status) != 0) ThrowFileFailure(path, errno);
  rights_ = RightsOf(status);
  Write({});
  std::array<char, 64 * 1024> piece{};
  for (;;) {
    const ssize_t count = ::read(source, piece.data(), piece.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) ThrowFileFailure(path, errno);
    if (count == 0) return;
    Write({piece.data(), static_cast<std::size_t>(count)});
  }
}

void WholeFile::FlushText() {
  if (::fsync(descriptor_) != 0) ThrowFileFailure(target_, errno);
}

/// Some file systems report a full disk only here.
void WholeFile::Close() {
  if (::close(std::exchange(descriptor_, -1)) != 0) ThrowFileFailure(target_, errno);
}

void WholeFile::PutInPlace(Flush flush) {
  if (flush == Flush::Yes) FlushText();
  Close();
  if (::rename(temporary_.c_str(), target_.c_str()) != 0) ThrowFileFailure(target_, errno);
  temporary_.clear();
  if (flush == Flush::Yes) FlushFolder(FolderOf(target_));
}

void WriteWhole(const std::string& path, std::string_view text, Flush flush) {
  WholeFile file(path);
  file.Write(text);
  file.PutInPlace(flush);
}

namespace {

/// Keeps a second name or a copy of the file in "Backup", replacing an older one. Not flushed.
void KeepInBackup(const ProgramFolder& folder, const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) ThrowFileFailure(path, errno);
  if (!S_ISREG(status.st_mode)) throw RuntimeFailure(Failure::PathFileAccess);
  const std::string backup = folder.File("Backup/");
  if (::mkdir(backup.c_str(), 0777) != 0 && errno != EEXIST) ThrowFileFailure(backup, errno);
  std::string target = backup + FileNameOfPath(path);
  // The copy of a file that is in "Backup" itself needs another name to survive it.
  const std::string file = BehindLinks(path);
  std::error_code none;
  if (std::filesystem::equivalent(FolderOf(file) + ".", backup, none)) target += ".old";
  if (LinkOver(file, target)) return;
  WholeFile copy(target);
  copy.CopyFrom(path);
  copy.PutInPlace(Flush::Yes);
}

/// The name of the folder is flushed too: it may have been made just now.
void FlushBackup(const ProgramFolder& folder) {
  FlushFolder(folder.File("Backup/"));
  FlushFolder(folder.Path + '/');
}

}  // namespace

void MoveToBackup(const ProgramFolder& folder, const std::string& path) {
  KeepInBackup(folder, path);
  FlushBackup(folder);
  const std::string file = BehindLinks(path);
  DeleteFile(file);
  FlushFolder(FolderOf(file));
}

void ReplaceKeepingBackup(const ProgramFolder& folder, const std::string& path,
                          const std::function<std::string()>& makeText) {
  WholeFile file(path);
  std::exception_ptr failed;
  try {
    file.Write(makeText());
    file.FlushText();
  } catch (const RuntimeFailure&) {
    failed = std::current_exception();
  }
  // The name keeps its old text until the new one takes its place in one step: there is no moment at
  // which a power cut would leave neither.
  if (file.Replaces()) KeepInBackup(folder, path);
  try {
    if (failed) std::rethrow_exception(failed);
    file.PutInPlace(Flush::No);
  } catch (const RuntimeFailure&) {
    // A failed save leaves no file, as if the old one had been deleted first.
    if (file.Replaces()) {
      PassOver([&] {
        FlushBackup(folder);
        DeleteFile(file.Target());
      });
    }
    throw;
  }
  // Where both folders are on one disk, the first flush does most of the work of the second.
  FlushFolder(FolderOf(file.Target()));
  if (file.Replaces()) FlushBackup(folder);
}

void xcopyFile(const std::string& source, const std::string& target) {
  PassOver([&] {
    WholeFile file(target);
    file.CopyFrom(source);
    file.PutInPlace(Flush::No);
  });
}

}  // namespace requite
