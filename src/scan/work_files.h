// SPDX-License-Identifier: MIT
// The two work files of a page in the program's folder, overwritten for each page and left there.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace requite {

/// The page with one href at the start of each line from the first href on: what the analyser reads.
[[nodiscard]] std::string PageFile(const ProgramFolder& folder, std::int16_t connection);
/// The same text without any line end: what the e-mail harvester reads.
[[nodiscard]] std::string FlatPageFile(const ProgramFolder& folder, std::int16_t connection);

/// The text without any CR or LF. The room of `buffer`, which holds nothing more of use, serves for it.
[[nodiscard]] std::string WithoutLineEnds(std::string_view text, std::string buffer = {});

/// Writes a file anew, also over one that may be deleted but not written. Throws what the file system
/// refuses.
void ReplaceFile(const std::string& path, std::string_view text);

}  // namespace requite
