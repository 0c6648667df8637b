// SPDX-License-Identifier: MIT
// Prints changes and scans: as lines of fields, or as JSON.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "console/text_codec.h"
#include "history/change_list.h"

namespace requite {

/// Texts in the code page.
using Table = std::vector<std::vector<std::string>>;

/// The captions and a row for each change.
[[nodiscard]] Table ChangeTable(const ChangeList& list);
/// The captions and a row for each scan.
[[nodiscard]] Table ScanTable(const std::vector<ScanRecord>& scans);

/// Joined by tabs, or in aligned columns; escaped either way.
void PrintTabbed(const Table& table, const TextCodec& codec, std::ostream& out);
void PrintAligned(const Table& table, const TextCodec& codec, std::ostream& out);

/// One object and a line end.
void PrintJson(const ChangeList& list, const TextCodec& codec, std::ostream& out);

}  // namespace requite
