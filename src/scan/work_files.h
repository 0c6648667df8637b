// SPDX-License-Identifier: MIT
// The two work files of a page, overwritten for each page and left there. The scan itself reads the page from
// memory: what happens to the files decides nothing.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/work_folder.h"
#include "scan/slices.h"

namespace requite {

/// The number of the one connection that a scan uses. It is part of the names of the files.
inline constexpr std::int16_t kConnection = 0;

/// The page with one href at the start of each line from the first href on.
[[nodiscard]] std::string PageFile(const WorkFolder& folder, std::int16_t connection);
/// The same text without any line end: what the e-mail harvester reads.
[[nodiscard]] std::string FlatPageFile(const WorkFolder& folder, std::int16_t connection);

/// Appends a text without its CRs and LFs.
void AppendWithoutLineEnds(std::string& flat, std::string_view text);

/// Both write a file over the one that lies there; false when the file system refuses. A scan that is stopped
/// meanwhile leaves the part that was written by then.
[[nodiscard]] bool WritePageFile(const std::string& path, std::string_view text, const Slices& slices);
/// Takes the line ends out and puts one after the text.
[[nodiscard]] bool WriteFlatPageFile(const std::string& path, std::string_view text, const Slices& slices);

}  // namespace requite
