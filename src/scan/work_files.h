// SPDX-License-Identifier: MIT
// The two work files, which always hold the last page. The scan itself reads the page from memory: it does
// not depend on the files.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/work_folder.h"
#include "scan/slices.h"

namespace requite {

/// The number of the one connection, which is part of the names of the files.
inline constexpr std::int16_t kConnection = 0;

/// The page with each href at the start of a line.
[[nodiscard]] std::string PageFile(const WorkFolder& folder, std::int16_t connection);
/// The same text without line ends. The e-mail harvester reads it.
[[nodiscard]] std::string FlatPageFile(const WorkFolder& folder, std::int16_t connection);

/// Appends a text without its CRs and LFs.
void AppendWithoutLineEnds(std::string& flat, std::string_view text);

/// Both replace the file and return false when the file system refuses. After a stop, the file has what was
/// written until then.
[[nodiscard]] bool WritePageFile(const std::string& path, std::string_view text, const Slices& slices);
/// Removes the line ends and adds one at the end.
[[nodiscard]] bool WriteFlatPageFile(const std::string& path, std::string_view text, const Slices& slices);

}  // namespace requite
