// SPDX-License-Identifier: MIT
// What takes the toolkit's tables of the world's locales and host names. The console loads them when it first
// needs them, in a library of the program's own: they take more time and memory than the rest of its start.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "system/wall_clock.h"

namespace requite {

/// What the library gives, and the names of the functions.
using MakeLocaleClock = Clock* (*)();
inline constexpr const char* kMakeLocaleClock = "RequiteMakeLocaleClock";
using FindAsciiHost = void (*)(std::string_view host, std::string& ascii);
inline constexpr const char* kFindAsciiHost = "RequiteFindAsciiHost";

/// Whether the environment asks for dates and numbers as PlainClock has them.
[[nodiscard]] bool LocaleIsPlain();

/// The clock of the user's locale. The plain locale needs no library; for others the first call that
/// depends on the locale loads it, and throws RuntimeFailure when it is missing.
class LateClock : public WallClock {
 public:
  [[nodiscard]] std::string ShortDate() override { return Local().ShortDate(); }
  [[nodiscard]] std::string ShortTime() override { return Local().ShortTime(); }
  [[nodiscard]] std::string TwoDecimals(double value) override { return Local().TwoDecimals(value); }

 private:
  [[nodiscard]] Clock& Local();

  std::unique_ptr<Clock> local_;
};

/// The name of a host as DNS has it: an international one in its ASCII form, whatever the locale. Empty
/// when the host has no such form. Throws RuntimeFailure when the library is missing.
[[nodiscard]] std::string LateAsciiHost(std::string_view host);

}  // namespace requite
