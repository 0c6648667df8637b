// SPDX-License-Identifier: MIT
// The writer of the project file format.
#pragma once

#include <string>
#include <string_view>

#include "model/project.h"

namespace requite {

/// The markers that begin the lines of a project file.
namespace marker {
inline constexpr std::string_view kNextSite = "NEXTSITE:";
inline constexpr std::string_view kHtml1 = "HTML01:";
inline constexpr std::string_view kHtml2 = "HTML02:";
inline constexpr std::string_view kHtml3 = "HTML03:";
inline constexpr std::string_view kResult = "RESULT:";
inline constexpr std::string_view kRule = "RULE:";
inline constexpr std::string_view kPostSingle = "POSTSINGLE:";
inline constexpr std::string_view kPostMulti = "POSTMULTI:";
}  // namespace marker

/// Replaces a line end in a Page Builder text.
inline constexpr std::string_view kLineEndMark = "|||";

/// Leaves out no Main Site.
inline constexpr int kNoRow = -1;

/// The whole project as the text of its file, each line with its line end. Values are written unchanged: a
/// "|" or a line end in a value shifts what is read back. `leaveOutRow` is the row of List4, counted from 0,
/// of a Main Site that is left out with its Linking Sites. The first Main Site that is written has no
/// "NEXTSITE:" marker.
[[nodiscard]] std::string ProjectText(const Project& project, int leaveOutRow = kNoRow);

}  // namespace requite
