// SPDX-License-Identifier: MIT
// The library is found by its place beside the program, never by searching the system's folders.
#include "system/locale_module.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>

#include "platform/late_library.h"
#include "system/program_folder.h"

namespace requite {
namespace {

namespace fs = std::filesystem;

/// The library of the build folder if there is one, else that of the installed program.
std::string ModulePath() {
  const fs::path folder = ExecutableFolder();
  std::error_code ignored;
  const fs::path beside = folder / REQUITE_LOCALE_MODULE;
  if (fs::is_regular_file(beside, ignored)) return beside;
  return (folder / REQUITE_INSTALLED_LOCALE_MODULE).lexically_normal();
}

template <class Function>
Function Find(const char* name) {
  static const std::string path = ModulePath();
  static LateLibrary library(path.c_str());
  return reinterpret_cast<Function>(library.Find(name));
}

}  // namespace

bool LocaleIsPlain() {
  // Those that a date, a number or a fallback for one of them is taken from.
  constexpr std::array kVariables{"LC_ALL", "LC_TIME", "LC_NUMERIC", "LC_MESSAGES", "LANG"};
  constexpr std::array<std::string_view, 5> kPlain{"", "C", "POSIX", "C.UTF-8", "C.utf8"};
  return std::all_of(kVariables.begin(), kVariables.end(), [&](const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr || std::find(kPlain.begin(), kPlain.end(), value) != kPlain.end();
  });
}

Clock& LateClock::Local() {
  if (!local_ && LocaleIsPlain()) local_ = std::make_unique<PlainClock>();
  if (!local_) local_.reset(Find<MakeLocaleClock>(kMakeLocaleClock)());
  return *local_;
}

std::string LateAsciiHost(std::string_view host) {
  std::string ascii;
  Find<FindAsciiHost>(kFindAsciiHost)(host, ascii);
  return ascii;
}

}  // namespace requite
