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

/// Stands for a line end inside a Page Builder text.
inline constexpr std::string_view kLineEndMark = "|||";

/// The row to pass when no Main Site is left out.
inline constexpr int kNoRow = -1;

/// The whole project as the text of its file, each line with its end. Values are written as they
/// are: a "|" or a line end in one of them shifts what is read back.
/// `leaveOutRow` is the row of List4, counted from 0, of a Main Site that is left out together with
/// its Linking Sites; the first Main Site written never has the "NEXTSITE:" marker.
[[nodiscard]] std::string ProjectText(const Project& project, int leaveOutRow = kNoRow);

}  // namespace requite
