// SPDX-License-Identifier: MIT
// Names, lists and deletes the copies. Their names begin with the time, so that the order of names is theirs.
#include "editing/kept_copies.h"

#include <algorithm>
#include <filesystem>

#include "platform/runtime_failure.h"
#include "platform/text.h"
#include "platform/whole_file.h"

namespace requite {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kBackup = "Backup";
constexpr std::string_view kUnsaved = "Backup/Unsaved projects";
constexpr std::string_view kSuffix = ".prj";
constexpr std::size_t kLongestName = 100;
constexpr std::string_view kNameForm = "00000000-000000-000 ";  // date, time and number
constexpr std::size_t kTimeLength = 15;                         // of its date and time
constexpr std::size_t kNumberLength = 3;

/// "2026-01-02T14:04:05Z" as "20260102-140405".
std::string InFileName(const std::string& utc) {
  std::string digits;
  for (const char each : utc) {
    if (each >= '0' && each <= '9') digits += each;
    if (each == 'T') digits += '-';
  }
  return digits;
}

/// What users put into the folder themselves is theirs.
bool IsOwnName(std::string_view name) {
  if (name.size() < kNameForm.size()) return false;
  return std::equal(kNameForm.begin(), kNameForm.end(), name.begin(), [](char form, char each) {
    return form == '0' ? each >= '0' && each <= '9' : each == form;
  });
}

/// "20260102-140405-001", or a later one than that of the newest copy: what was kept last counts as the
/// newest also when the clock was set back.
std::string NextNumber(const std::vector<std::string>& copies, std::string time) {
  std::int64_t number = 1;
  const std::string newest = copies.empty() ? std::string() : FileNameOfPath(copies.front());
  if (!newest.empty() && newest.substr(0, kTimeLength) >= time) {
    time = newest.substr(0, kTimeLength);
    PassOver([&] { number = ReadInt16(newest.substr(kTimeLength + 1, kNumberLength)) + 1; });
  }
  return time + '-' + ZeroPadded(number, kNumberLength);
}

/// The name of a project's file without its folder and its suffix, so short that a time fits before it.
std::string Stem(std::string_view name) {
  std::string stem = FileNameOfPath(name);
  if (Lower(stem).ends_with(kSuffix)) stem.resize(stem.size() - kSuffix.size());
  return stem.empty() ? "Unnamed" : stem.substr(0, kLongestName);
}

/// The project files of a folder, without those in its folders and hidden ones.
std::vector<fs::path> ProjectFilesIn(const std::string& folder) {
  std::vector<fs::path> files;
  std::error_code failed;
  for (fs::directory_iterator each(folder, failed), end; !failed && each != end; each.increment(failed)) {
    std::error_code ignored;
    const std::string name = each->path().filename().string();
    const bool isProject = name.ends_with(kSuffix) || name.ends_with(std::string(kSuffix) + ".old");
    if (isProject && !name.starts_with('.') && each->is_regular_file(ignored)) files.push_back(each->path());
  }
  return files;
}

std::uint64_t SizeOf(const fs::path& file) {
  std::error_code failed;
  const auto size = fs::file_size(file, failed);
  return failed ? 0 : size;
}

template <class Before>
std::vector<std::string> InOrder(std::vector<fs::path> files, Before before) {
  std::sort(files.begin(), files.end(), before);
  std::vector<std::string> paths;
  paths.reserve(files.size());
  for (const fs::path& each : files) paths.push_back(each.string());
  return paths;
}

}  // namespace

std::string KeptCopies::Keep(const std::string& text, std::string_view name, const std::string& utc) const {
  if (text.size() > bounds_.Bytes) throw RuntimeFailure(Failure::OutOfMemory);
  const std::string folder = folder_.File(kUnsaved);
  std::error_code failed;
  fs::create_directories(folder, failed);
  if (failed) ThrowFileFailure(folder, failed.value());
  std::string path =
      folder + '/' + NextNumber(Unsaved(), InFileName(utc)) + ' ' + Stem(name) + std::string(kSuffix);
  WriteWhole(path, text + std::string(kLineEnd), Flush::Yes);
  // The copy is written: whatever fails from here on must not look as if it were not.
  PassOver([&] { DeleteSame(path); });
  PassOver([&] { DeleteOldest(); });
  return path;
}

std::vector<std::string> KeptCopies::Unsaved() const {
  std::vector<fs::path> files = ProjectFilesIn(folder_.File(kUnsaved));
  std::erase_if(files, [](const fs::path& each) { return !IsOwnName(each.filename().string()); });
  return InOrder(std::move(files),
                 [](const fs::path& a, const fs::path& b) { return a.filename() > b.filename(); });
}

std::vector<std::string> KeptCopies::Saved() const {
  const auto written = [](const fs::path& file) {
    std::error_code failed;
    const auto time = fs::last_write_time(file, failed);
    return failed ? fs::file_time_type::min() : time;
  };
  return InOrder(ProjectFilesIn(folder_.File(kBackup)),
                 [&](const fs::path& a, const fs::path& b) { return written(a) > written(b); });
}

/// Going back and forth between two unsaved projects must not push all others out.
void KeptCopies::DeleteSame(const std::string& kept) const {
  const std::string text = ReadFile(kept);
  for (const std::string& each : Unsaved()) {
    if (each == kept || SizeOf(each) != text.size()) continue;
    PassOver([&] {
      if (ReadFile(each) == text) DeleteFile(each);
    });
  }
}

void KeptCopies::DeleteOldest() const {
  std::size_t copies = 0;
  std::uint64_t bytes = 0;
  for (const std::string& each : Unsaved()) {
    bytes += SizeOf(each);
    if (++copies > bounds_.Copies || (bytes > bounds_.Bytes && copies > 1)) {
      PassOver([&] { DeleteFile(each); });
    }
  }
}

}  // namespace requite
