// SPDX-License-Identifier: MIT
// Keeps unsaved work before something replaces it, and brings it back.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "editing/kept_copies.h"
#include "editing/project_files.h"

namespace requite {

struct Form1;

/// Unsaved work is a project whose text differs from what was last opened or saved: the flag ProjectSaved
/// does not know of imports, marks and Page Builder texts.
class WorkKeeper : private ProjectWatcher {
 public:
  /// What became of unsaved work.
  struct Kept {
    std::string Copy;     ///< path of the copy; empty when it could not be written
    std::string Project;  ///< path of the project's file; empty for one that was never saved
    std::string Failure;  ///< why there is no copy
  };

  /// Follows the project of the form, which must outlive this object, from the first Begin on.
  explicit WorkKeeper(Form1& form);
  ~WorkKeeper() override;
  WorkKeeper(const WorkKeeper&) = delete;
  WorkKeeper& operator=(const WorkKeeper&) = delete;

  /// The program has started: the project on show, if any, is the one that was saved last.
  void Begin();
  /// Keeps the project if it has unsaved work.
  [[nodiscard]] std::optional<Kept> KeepUnsaved();
  /// Replaces the project, whose own unsaved work is kept too, with the one of a copy. Returns false, with
  /// nothing changed, while a scan runs, and throws RuntimeFailure for a copy that cannot be read.
  bool BringBack(const std::string& copy, const std::string& project);

  [[nodiscard]] const KeptCopies& Copies() const { return copies_; }

  /// Receive what happened. Any of them may be null.
  std::function<void(const Kept&)> OnKept;
  std::function<void()> OnReplaced;  ///< the project on show is another one, or empty
  std::function<void()> OnNew;
  std::function<void(const std::string& path, bool whole)> OnOpened;
  std::function<void(const std::string& path)> OnSaved;

 private:
  void ProjectLeaves() override;
  void ProjectIsNew() override;
  void ProjectIsOpened(const std::string& path, bool whole) override;
  void ProjectIsSaved(const std::string& path) override;
  [[nodiscard]] std::size_t Fingerprint() const;

  Form1& form_;
  KeptCopies copies_;
  bool following_ = false;
  std::optional<std::size_t> saved_;  ///< fingerprint of the project as it was saved; nothing: it never was
};

}  // namespace requite
