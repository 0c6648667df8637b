// SPDX-License-Identifier: MIT
// Reading and appending the settings journal, and its locks.
//
// Every process holds a shared lock on the journal while it uses it. Only a process with the exclusive
// lock, which is alone with the journal, may replace the file. A lock may be granted on a file that has
// just been replaced, so after each change of locks the name is checked again.
#include "system/settings_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <utility>

#include "platform/text.h"
#include "system/settings_record.h"

namespace requite {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kHeader = "requite-settings 1";
constexpr int kMostAttempts = 100;
/// If the journal were one of the standard streams, printed text would end up in it.
constexpr int kFirstPrivate = STDERR_FILENO + 1;

/// Links are followed here, so that replacing the file does not replace the link.
std::string WithoutLinks(const std::string& path) {
  std::error_code error;
  const fs::path absolute = fs::absolute(path, error);
  const fs::path plain = fs::weakly_canonical(absolute, error);
  return error ? path : plain.string();
}

/// Settings are private, and so is a new folder for them.
void MakeFolderOf(const std::string& path) {
  const fs::path folder = fs::path(path).parent_path();
  std::error_code error;
  fs::create_directories(folder.parent_path(), error);
  ::mkdir(folder.c_str(), 0700);
}

off_t SizeOfRecord(std::string_view key, std::string_view text) {
  return static_cast<off_t>(key.size() + text.size() + 2);
}

}  // namespace

std::size_t SettingsFile::FoldedHash::operator()(std::string_view key) const {
  std::uint64_t hash = 14695981039346656037ULL;
  for (const char byte : key) hash = (hash ^ FoldByte(static_cast<unsigned char>(byte))) * 1099511628211ULL;
  return hash;
}

bool SettingsFile::FoldedEqual::operator()(std::string_view a, std::string_view b) const {
  return a == b || Equals(a, b, Compare::Text);
}

SettingsFile::SettingsFile(const std::string& path, Use use) : path_(WithoutLinks(path)), use_(use) {
  if (use_ == Use::Copy) {
    TakeCopy();
  } else {
    Open();
  }
}

SettingsFile::~SettingsFile() { Release(); }

std::optional<std::string> SettingsFile::Read(std::string_view key) {
  const auto found = values_.find(key);
  return found == values_.end() ? std::nullopt : std::optional(found->second.Text);
}

void SettingsFile::Write(std::string_view key, std::string_view value) {
  TakeNew(key, value);
  AppendNew();
}

void SettingsFile::WriteSoon(std::string_view key, std::string_view value) {
  TakeNew(key, value);
  if (late_ == nullptr || !late_->MayWait()) AppendNew();
}

void SettingsFile::PutOffWith(LateWork& late) {
  late_ = &late;
  late.Add(this, [this] { AppendNew(); });
}

void SettingsFile::TakeNew(std::string_view key, std::string_view value) {
  Put(key, value).Saved = false;
  if (use_ == Use::Copy) return;
  const auto isKey = [key](const std::string& name) { return Equals(name, key, Compare::Text); };
  if (std::none_of(new_.begin(), new_.end(), isKey)) new_.emplace_back(key);
}

/// Puts the new values into the journal, in one piece.
void SettingsFile::AppendNew() {
  if (new_.empty()) return;
  bool appended = false;
  for (int attempt = 0; attempt < 2 && !appended; ++attempt) {
    if (file_ < 0) {
      unsaved_ = true;
      Open();
      if (file_ < 0) {
        TellUnsaved(openError_);
        break;
      }
    }
    ComposePending();
    appended = AppendPending();
  }
  new_.clear();  // what could not be written is kept as unsaved
  if (appended) CompactIfWorthIt();
}

/// What the next write appends: the new records, or every value that is not in the journal yet.
void SettingsFile::ComposePending() {
  pending_.clear();
  if (tornTail_) pending_ += {kVoidLine, '\n'};
  if (!hasHeader_) pending_.append(kHeader) += '\n';
  if (!unsaved_) {
    for (const std::string& key : new_) AppendSettingsRecord(pending_, key, values_.find(key)->second.Text);
    return;
  }
  for (const auto& [name, one] : values_) {
    if (!one.Saved) AppendSettingsRecord(pending_, name, one.Text);
  }
}

/// Appends the pending text to the journal in one piece, and reads what others have appended.
/// False when the file turns out to be deleted: a new one then needs every known value.
bool SettingsFile::AppendPending() {
  const ssize_t written = ::write(file_, pending_.data(), pending_.size());
  if (written != static_cast<ssize_t>(pending_.size())) {
    // A short write gives no error number; the reason is a full disk.
    const int error = written < 0 ? errno : ENOSPC;
    unsaved_ = true;
    if (written > 0) CatchUp();
    TellUnsaved(error);
    return true;
  }
  struct stat status {};
  ::fstat(file_, &status);
  if (status.st_nlink == 0) {
    for (auto& [name, one] : values_) one.Saved = false;
    Release();
    return false;
  }
  if (unsaved_) {
    for (auto& [name, one] : values_) one.Saved = true;
    unsaved_ = false;
  } else {
    for (const std::string& key : new_) values_.find(key)->second.Saved = true;
  }
  if (status.st_size == applied_ + written) {
    applied_ = status.st_size;
    hasHeader_ = true;
  } else {
    CatchUp();
  }
  return true;
}

void SettingsFile::TellUnsaved(int error) {
  if (!std::exchange(toldUnsaved_, true) && OnUnsaved) OnUnsaved(path_, error);
}

SettingsFile::Value& SettingsFile::Put(std::string_view key, std::string_view text) {
  auto found = values_.find(key);
  if (found == values_.end()) {
    found = values_.try_emplace(std::string(key)).first;
    liveSize_ += SizeOfRecord(key, {});
  }
  Value& value = found->second;
  liveSize_ += static_cast<off_t>(text.size()) - static_cast<off_t>(value.Text.size());
  value.Text = text;
  return value;
}

/// If this fails, the values stay in memory and the next write tries again.
void SettingsFile::Open() {
  for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
    const Attempt result = TryOpen();
    if (result == Attempt::Opened) return;
    Release();
    if (result == Attempt::Failed) return;
  }
}

/// From a damaged file the copy takes what can be read.
void SettingsFile::TakeCopy() {
  file_ = ::open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
  struct stat status {};
  if (file_ >= 0 && ::fstat(file_, &status) == 0 && S_ISREG(status.st_mode)) CatchUp();
  Release();
}

SettingsFile::Attempt SettingsFile::TryOpen() {
  if (!OpenJournal()) return Attempt::Failed;
  const bool alone = TryExclusiveLock();
  if (!alone) TakeSharedLock();
  if (!IsCurrent()) return Attempt::Again;
  if (alone) return UseAlone();
  // Others are using the file, so what cannot be read in it is ignored.
  CatchUp();
  return Attempt::Opened;
}

/// Only now can a damaged or overlong journal be replaced.
SettingsFile::Attempt SettingsFile::UseAlone() {
  if (!CatchUp()) {
    SetAside();
    values_.clear();
    liveSize_ = 0;
    return Attempt::Again;
  }
  if (applied_ > compactAt_ && liveSize_ < applied_ / 2) return Compact();
  TakeSharedLock();
  return IsCurrent() ? Attempt::Opened : Attempt::Again;
}

bool SettingsFile::OpenJournal() {
  constexpr int kFlags = O_RDWR | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY;
  file_ = ::open(path_.c_str(), kFlags, 0600);
  if (file_ < 0 && errno == ENOENT) {
    MakeFolderOf(path_);
    file_ = ::open(path_.c_str(), kFlags, 0600);
  }
  openError_ = file_ < 0 ? errno : EINVAL;
  struct stat status {};
  return file_ >= kFirstPrivate && ::fstat(file_, &status) == 0 && S_ISREG(status.st_mode);
}

/// The exclusive lock is only held for the time of rewriting the file. A file system without locks is
/// used without them: appending is still safe, but the file is never replaced.
void SettingsFile::TakeSharedLock() const {
  while (::flock(file_, LOCK_SH) != 0 && errno == EINTR) {
  }
}

bool SettingsFile::TryExclusiveLock() const { return ::flock(file_, LOCK_EX | LOCK_NB) == 0; }

bool SettingsFile::IsCurrent() const {
  struct stat held {};
  struct stat named {};
  return ::fstat(file_, &held) == 0 && ::stat(path_.c_str(), &named) == 0 && held.st_ino == named.st_ino &&
         held.st_dev == named.st_dev;
}

void SettingsFile::Release() {
  if (file_ >= 0) ::close(file_);
  file_ = -1;
  applied_ = 0;
  hasHeader_ = false;
  tornTail_ = false;
}

/// Reads what the journal holds after the known part. False when some of it cannot belong to a
/// settings file.
bool SettingsFile::CatchUp() {
  std::string text;
  std::array<char, 64 * 1024> piece;
  for (off_t at = applied_;;) {
    const ssize_t bytes = ::pread(file_, piece.data(), piece.size(), at);
    if (bytes <= 0) break;
    text.append(piece.data(), static_cast<std::size_t>(bytes));
    at += bytes;
  }
  bool sound = true;
  std::string_view rest = text;
  for (std::size_t end = rest.find('\n'); end != std::string_view::npos; end = rest.find('\n')) {
    sound = ApplyLine(rest.substr(0, end)) && sound;
    rest.remove_prefix(end + 1);
    applied_ += static_cast<off_t>(end) + 1;
  }
  tornTail_ = !rest.empty();
  if (tornTail_ && !hasHeader_) sound = sound && kHeader.starts_with(rest);
  return sound;
}

bool SettingsFile::ApplyLine(std::string_view line) {
  if (line.ends_with(kVoidLine)) return true;
  if (line == kHeader) {
    hasHeader_ = true;
    return true;
  }
  if (!hasHeader_) return false;
  const std::optional<SettingsRecord> record = ReadSettingsRecord(line);
  if (!record) return false;
  const auto known = values_.find(record->Key);
  // A value of this run that could not be written yet is newer.
  if (known != values_.end() && !known->second.Saved) return true;
  Put(record->Key, record->Value).Saved = true;
  return true;
}

void SettingsFile::SetAside() const {
  for (int number = 1;; ++number) {
    const std::string name = path_ + ".damaged-" + std::to_string(number);
    if (::access(name.c_str(), F_OK) == 0) continue;
    ::rename(path_.c_str(), name.c_str());
    return;
  }
}

void SettingsFile::CompactIfWorthIt() {
  if (applied_ <= compactAt_ || liveSize_ >= applied_ / 2) return;
  // If others use the file now, the next attempt comes after this many more bytes.
  compactAt_ = applied_ + kCompactionSize;
  // Asking for the exclusive lock may lose the shared one, so another process may replace the file here.
  const bool alone = TryExclusiveLock();
  if (!alone) TakeSharedLock();
  Attempt result = IsCurrent() ? Attempt::Opened : Attempt::Again;
  if (alone && result == Attempt::Opened) {
    CatchUp();
    result = Compact();
  }
  if (result == Attempt::Opened) return;
  Release();
  Open();
}

/// Rewrites the journal with each value once. Needs the exclusive lock; afterwards the shared lock
/// on the new file is held.
SettingsFile::Attempt SettingsFile::Compact() {
  pending_.assign(kHeader) += '\n';
  for (const auto& [name, one] : values_) AppendSettingsRecord(pending_, name, one.Text);

  const std::string name = path_ + ".new";
  const int held = file_;
  file_ = ::open(name.c_str(), O_RDWR | O_APPEND | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  const auto size = static_cast<ssize_t>(pending_.size());
  if (file_ >= 0) TakeSharedLock();
  const bool done = file_ >= kFirstPrivate && ::write(file_, pending_.data(), pending_.size()) == size &&
                    ::fsync(file_) == 0 && ::rename(name.c_str(), path_.c_str()) == 0;
  if (done) {
    ::close(held);
    applied_ = size;
    hasHeader_ = true;
    tornTail_ = false;
    compactAt_ = kCompactionSize;
    unsaved_ = false;
    for (auto& [key, one] : values_) one.Saved = true;
    return Attempt::Opened;
  }
  if (file_ >= 0) ::close(file_);
  ::unlink(name.c_str());
  file_ = held;
  compactAt_ = applied_ + kCompactionSize;
  TakeSharedLock();
  return IsCurrent() ? Attempt::Opened : Attempt::Again;
}

}  // namespace requite
