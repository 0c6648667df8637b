// SPDX-License-Identifier: MIT
// The names that the title bar, the About window and the message boxes show.
#pragma once

#include <string_view>

namespace requite::product {

inline constexpr std::string_view kName = "Requite";
inline constexpr std::string_view kCompany = "The Requite Project";
inline constexpr std::string_view kSite = "Requite";
/// The home page, a file in the program's folder.
inline constexpr std::string_view kHomePage = "welcome.html";
inline constexpr std::string_view kVersion = REQUITE_VERSION;

}  // namespace requite::product
