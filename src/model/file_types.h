// SPDX-License-Identifier: MIT
// The list of URL fragments that a scan may follow, kept in the program's folder and edited by hand too.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace requite {

inline constexpr std::string_view kFileTypesName = "filetypes.txt";

/// The fragments of `filetypes.txt` in the order of its lines, as a scan uses them: lines that are
/// empty or a single blank are skipped, and a line with "|" in it stands for several fragments.
/// Throws FileNotFound when the file is missing.
[[nodiscard]] std::vector<std::string> ReadFileTypes(const ProgramFolder& folder);

/// The lines of `filetypes.txt` as they are listed for editing: skipped like above, each line one entry.
/// None when the file is missing; a file that cannot be read throws.
[[nodiscard]] std::vector<std::string> ListFileTypes(const ProgramFolder& folder);

/// Replaces `filetypes.txt` by these lines. Throws what the file system refuses; the old file is then
/// still there.
void SaveFileTypes(const ProgramFolder& folder, const std::vector<std::string>& lines);

}  // namespace requite
