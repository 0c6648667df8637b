// SPDX-License-Identifier: MIT
// The choice of the program's folder and its first filling.
#include "shell/qt/program_folder.h"

#include <unistd.h>

#include <QCoreApplication>
#include <QFile>
#include <cstdlib>
#include <filesystem>
#include <vector>

namespace requite {
namespace {

namespace fs = std::filesystem;

/// A folder that the user's environment names; only an absolute path counts, else `fallback` below the
/// user's home.
std::string UserFolder(const char* variable, const std::string& fallback) {
  const char* named = std::getenv(variable);
  if (named != nullptr && named[0] == '/') return named;
  const char* home = std::getenv("HOME");
  return (home == nullptr ? std::string() : std::string(home)) + fallback;
}

std::vector<fs::path> EntriesOf(const fs::path& folder) {
  std::vector<fs::path> entries;
  std::error_code ignored;
  for (fs::directory_iterator one(folder, ignored), end; !ignored && one != end; one.increment(ignored)) {
    entries.push_back(one->path());
  }
  return entries;
}

}  // namespace

ProgramPlaces ProgramPlaces::OfThisProgram() {
  ProgramPlaces places;
  places.Executable = QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString();
  const fs::path shared = fs::path(places.Executable) / REQUITE_INSTALLED_FILES;
  std::error_code ignored;
  places.Installed =
      fs::is_directory(shared, ignored) ? shared.lexically_normal().string() : places.Executable;
  places.UserData = UserFolder("XDG_DATA_HOME", "/.local/share") + "/requite";
  return places;
}

ProgramFolder ChooseProgramFolder(const ProgramPlaces& places) {
  // An installed program must not put a user's files among those of the package, even where the user
  // is root and could.
  const bool installed = places.Installed != places.Executable;
  const bool own = !installed && ::access(places.Executable.c_str(), W_OK | X_OK) == 0;
  ProgramFolder folder{own ? places.Executable : places.UserData};
  FillProgramFolder(places.Installed, folder.Path);
  return folder;
}

void FillProgramFolder(const std::string& installed, const std::string& folder) {
  std::error_code ignored;
  fs::create_directories(folder, ignored);
  if (fs::equivalent(installed, folder, ignored)) return;
  const std::vector<fs::path> entries = EntriesOf(installed);
  for (const fs::path& entry : entries) {
    if (fs::exists(folder / entry.filename(), ignored)) return;
  }
  for (const fs::path& entry : entries) {
    fs::copy(entry, folder / entry.filename(), fs::copy_options::recursive, ignored);
  }
}

std::string DefaultSettingsPath() { return UserFolder("XDG_CONFIG_HOME", "/.config") + "/requite/settings"; }

}  // namespace requite
