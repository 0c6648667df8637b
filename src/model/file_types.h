// SPDX-License-Identifier: MIT
// The list of URL fragments that a scan may follow. The user may edit its file by hand.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace requite {

inline constexpr std::string_view kFileTypesName = "filetypes.txt";

/// The fragments of `filetypes.txt` in the order of its lines, as a scan uses them. A line that is empty or a
/// single blank is skipped; a line with "|" holds several fragments.
/// Throws FileNotFound when the file is missing.
[[nodiscard]] std::vector<std::string> ReadFileTypes(const ProgramFolder& folder);

/// The lines of `filetypes.txt` for editing, each as one entry; the same lines are skipped. Empty when the
/// file is missing. Throws when it cannot be read.
[[nodiscard]] std::vector<std::string> ListFileTypes(const ProgramFolder& folder);

/// Replaces `filetypes.txt` by these lines. Throws when the file system refuses, and then keeps the old file.
void SaveFileTypes(const ProgramFolder& folder, const std::vector<std::string>& lines);

}  // namespace requite
