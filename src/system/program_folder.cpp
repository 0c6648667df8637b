// SPDX-License-Identifier: MIT
// Chooses the program's folder and fills it.
#include "system/program_folder.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "platform/whole_file.h"

namespace requite {
namespace {

namespace fs = std::filesystem;

/// A folder named by the environment if it is an absolute path, else `fallback` below the user's home.
std::string UserFolder(const char* variable, const std::string& fallback) {
  const char* named = std::getenv(variable);
  if (named != nullptr && named[0] == '/') return named;
  return HomeFolder() + fallback;
}

}  // namespace

ProgramPlaces ProgramPlaces::OfThisProgram() {
  ProgramPlaces places;
  places.Executable = ExecutableFolder();
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
  std::error_code error;
  for (fs::recursive_directory_iterator one(installed, error), end; !error && one != end;
       one.increment(error)) {
    const fs::path target = folder / one->path().lexically_relative(installed);
    if (one->is_directory(ignored)) {
      fs::create_directory(target, ignored);
    } else if (fs::symlink_status(target, ignored).type() == fs::file_type::not_found) {
      xcopyFile(one->path(), target);
    }
  }
}

std::string ExecutableFolder() {
  std::error_code ignored;
  return fs::read_symlink("/proc/self/exe", ignored).parent_path();
}

std::string HomeFolder() {
  const char* home = std::getenv("HOME");
  return home == nullptr ? std::string() : std::string(home);
}

std::string DefaultSettingsPath() { return UserFolder("XDG_CONFIG_HOME", "/.config") + "/requite/settings"; }

}  // namespace requite
