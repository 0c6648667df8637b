// SPDX-License-Identifier: MIT
// The settings store: a journal of records, with one system call for each value written.
#pragma once

#include <sys/types.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/late_work.h"
#include "platform/services.h"

namespace requite {

/// A value is safe when Write returns: it survives the end of the process by any signal. The values of
/// WriteSoon may wait while work may be put off; they come into the file before any value that is written
/// after them. The file and its folder are made when missing, readable by the user alone.
///
/// Several processes may use one file at once: each record is appended in one piece and none is
/// lost. A process sees the others' values at its start and after each of its own writes.
///
/// A file that is not a settings file, or that holds anything but records, is set aside as
/// "<name>.damaged-1" (or the next free number), and the store starts empty. A last record that was
/// cut short is dropped. A value that cannot be written (a full disk) is kept for the run and written
/// together with the next one that can; OnUnsaved runs for the first.
class SettingsFile : public SettingsStore {
 public:
  /// A journal of at least this many bytes is rewritten when most of it is out of date and no other
  /// process uses it.
  static constexpr off_t kCompactionSize = 256 * 1024;

  /// A copy starts with the values that the file holds now and never writes to the disk.
  enum class Use { Shared, Copy };

  explicit SettingsFile(const std::string& path, Use use = Use::Shared);
  ~SettingsFile() override;
  SettingsFile(const SettingsFile&) = delete;
  SettingsFile& operator=(const SettingsFile&) = delete;

  [[nodiscard]] std::optional<std::string> Read(std::string_view key) override;
  void Write(std::string_view key, std::string_view value) override;
  void WriteSoon(std::string_view key, std::string_view value) override;

  /// From now on the values of WriteSoon are written when `late` finishes. Without it they are written at
  /// once. Must outlive the last WriteSoon.
  void PutOffWith(LateWork& late);

  /// Runs once, when a value could not be put into the file for the first time, with the number of the
  /// system's error.
  std::function<void(const std::string& path, int error)> OnUnsaved;

 private:
  struct FoldedHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view key) const;
  };
  struct FoldedEqual {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const;
  };
  struct Value {
    std::string Text;
    bool Saved = false;
  };
  enum class Attempt { Opened, Again, Failed };

  void Open();
  void TakeCopy();
  Attempt TryOpen();
  Attempt UseAlone();
  bool OpenJournal();
  void TakeSharedLock() const;
  [[nodiscard]] bool TryExclusiveLock() const;
  [[nodiscard]] bool IsCurrent() const;
  void Release();

  bool CatchUp();
  bool ApplyLine(std::string_view line);
  Value& Put(std::string_view key, std::string_view text);
  void SetAside() const;
  void TakeNew(std::string_view key, std::string_view value);
  void AppendNew();
  void ComposePending();
  bool AppendPending();
  void TellUnsaved(int error);

  void CompactIfWorthIt();
  Attempt Compact();

  std::string path_;
  Use use_;
  int file_ = -1;           ///< held with a shared lock all the time
  off_t applied_ = 0;       ///< the journal up to here is in values_
  bool hasHeader_ = false;  ///< the journal has its first line
  bool tornTail_ = false;   ///< the journal ends in a piece of a record
  bool toldUnsaved_ = false;
  LateWork* late_ = nullptr;
  std::vector<std::string> new_;  ///< the keys of values that the journal must get, in its order
  int openError_ = 0;             ///< of the last attempt to open the journal
  bool unsaved_ = false;          ///< some older values are not in the journal
  off_t liveSize_ = 0;            ///< about what the journal would take with each value once
  off_t compactAt_ = kCompactionSize;
  std::string pending_;  ///< what a write appends; reused, so that a write allocates nothing
  std::unordered_map<std::string, Value, FoldedHash, FoldedEqual> values_;
};

}  // namespace requite
