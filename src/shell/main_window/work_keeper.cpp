// SPDX-License-Identifier: MIT
// Compares the project's text with the saved one, and writes the copies.
#include "shell/main_window/work_keeper.h"

#include "model/project_text.h"
#include "platform/runtime_failure.h"
#include "shell/main_window/form1.h"

namespace requite {

WorkKeeper::WorkKeeper(Form1& form) : form_(form), copies_(form.Folder) { form_.Files.Watcher = this; }

WorkKeeper::~WorkKeeper() { form_.Files.Watcher = nullptr; }

std::size_t WorkKeeper::Fingerprint() const { return std::hash<std::string>()(ProjectText(form_.Sites)); }

void WorkKeeper::Begin() {
  following_ = true;
  saved_ = Fingerprint();
}

std::optional<WorkKeeper::Kept> WorkKeeper::KeepUnsaved() {
  if (!following_) return std::nullopt;
  const std::string text = ProjectText(form_.Sites);
  if (saved_ == std::hash<std::string>()(text)) return std::nullopt;
  Kept kept;
  kept.Project = form_.Files.OpenPath();
  try {
    kept.Copy = copies_.Keep(text, kept.Project, form_.Platform.Clock.UtcDateTime());
  } catch (const RuntimeFailure& failure) {
    kept.Failure = failure.Description;
  }
  return kept;
}

bool WorkKeeper::BringBack(const std::string& copy, const std::string& project) {
  if (form_.State.Scanning) return false;
  // Read first: what is on show is replaced only by something that is there.
  const std::string text = ReadFile(copy);
  form_.Files.BringBack(text, project);
  saved_.reset();
  return true;
}

void WorkKeeper::ProjectLeaves() {
  if (!following_) return;
  const std::optional<Kept> kept = KeepUnsaved();
  if (OnReplaced) OnReplaced();
  if (kept && OnKept) OnKept(*kept);
}

void WorkKeeper::ProjectIsNew() {
  if (!following_) return;
  saved_ = Fingerprint();
  if (OnNew) OnNew();
}

void WorkKeeper::ProjectIsOpened(const std::string& path, bool whole) {
  if (!following_) return;
  saved_ = Fingerprint();
  if (OnOpened) OnOpened(path, whole);
}

void WorkKeeper::ProjectIsSaved(const std::string& path) {
  if (!following_) return;
  saved_ = Fingerprint();
  if (OnSaved) OnSaved(path);
}

}  // namespace requite
