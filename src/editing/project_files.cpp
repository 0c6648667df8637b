// SPDX-License-Identifier: MIT
// The steps of saving and loading a project, in the order that the flags and settings depend on.
#include "editing/project_files.h"

#include <filesystem>

#include "model/project_reader.h"
#include "model/project_restore.h"
#include "model/project_text.h"
#include "platform/runtime_failure.h"
#include "platform/schemes.h"
#include "platform/text.h"
#include "platform/whole_file.h"

namespace requite {
namespace {

/// In a writable folder even a write-protected file could be replaced, which its owner did not want.
void RequireNoWriteProtection(const std::string& path) {
  namespace fs = std::filesystem;
  constexpr fs::perms kAnyWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  std::error_code ignored;
  const fs::file_status status = fs::status(path, ignored);
  if (status.permissions() == fs::perms::unknown) return;
  if ((status.permissions() & kAnyWrite) == fs::perms::none) throw RuntimeFailure(Failure::PathFileAccess);
}

}  // namespace

void ProjectFiles::SaveProject(const std::string& path) {
  if (FileExists(path)) RequireNoWriteProtection(path);
  ReplaceKeepingBackup(folder_, path, [this] { return ProjectText(project_) + std::string(kLineEnd); });
  project_.ProjectSaved = true;
  openPath_ = path;
  settings_.SaveSetting(setting::LastProject, path);
  if (Watcher != nullptr) Watcher->ProjectIsSaved(path);
}

void ProjectFiles::LoadProject(const std::string& path, ClearFirst clearFirst) {
  if (clearFirst == ClearFirst::Yes) Empty();
  bool whole = false;
  EndSilently([&] {
    // Set before the file is opened, so a path that no longer exists stays the last project.
    settings_.SaveSetting(setting::LastProject, path);
    const std::string text = ReadFile(path);
    if (text.empty()) return;
    openPath_ = path;
    project_.ProjectSaved = clearFirst == ClearFirst::Yes;
    project_.JustLoaded = true;
    whole = ReadProjectText(text, project_);
    if (!whole) return;
    if (!project_.List4.Empty()) sites_.SelectMainSite(0);
    ShowProjectReport(path);
  });
  if (Watcher != nullptr) Watcher->ProjectIsOpened(path, whole);
}

void ProjectFiles::BringBack(const std::string& text, const std::string& path) {
  Empty();
  if (!RestoreProjectText(text, project_)) ReadProjectText(text, project_);
  project_.ProjectSaved = false;
  project_.JustLoaded = false;
  openPath_ = path;
  if (!project_.List4.Empty()) sites_.SelectMainSite(0);
  ShowProjectReport(path);
}

void ProjectFiles::ShowProjectReport(const std::string& path) {
  const std::string name = Replace(path, ".prj", ".html", Compare::Text);
  const std::string report = folder_.File(std::string(kProjectFilesFolder) + '/' + name);
  WebBrowser2_.Navigate(FileExists(report) ? report : "about:blank");
}

void ProjectFiles::Empty() {
  if (Watcher != nullptr) Watcher->ProjectLeaves();
  sites_.NewProject();
  openPath_.clear();
}

void ProjectFiles::cmdNew() {
  Empty();
  if (Watcher != nullptr) Watcher->ProjectIsNew();
}

void ProjectFiles::cmdOpen() {
  const std::string name = dialogs_.AskOpenName(ProjectDialog({}));
  if (!name.empty()) LoadProject(name);
}

void ProjectFiles::cmdSave() {
  if (!PassOver([&] { AskAndSave(DefaultSaveName()); })) AskAndSave("unnamed.prj");
}

void ProjectFiles::AskAndSave(const std::string& defaultName) {
  FileDialog dialog = ProjectDialog(defaultName);
  dialog.Habits = {"prj", true, settings_.GetSetting(setting::LastProject)};
  const std::string name = dialogs_.AskSaveName(dialog);
  if (!name.empty()) SaveProject(name);
}

std::string ProjectFiles::DefaultSaveName() const {
  if (project_.List4.Empty() || project_.List4.At(0).Text.empty()) return "Unnamed.prj";
  std::string name = project_.List4.At(0).Text;
  ReplaceIn(name, ".", "", Compare::Text);
  RemoveSchemes(name);
  return std::string(Before(name, '/')) + ".prj";
}

FileDialog ProjectFiles::ProjectDialog(std::string defaultName) const {
  return {folder_.File(kProjectFilesFolder), "Project Files (*.prj)|*.prj", std::move(defaultName)};
}

}  // namespace requite
