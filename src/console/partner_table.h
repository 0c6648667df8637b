// SPDX-License-Identifier: MIT
// Reads a table of partners: which column holds what, and whether a project file can keep it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "console/text_codec.h"
#include "model/records.h"

namespace requite {

struct Partner {
  std::size_t Line = 0;  ///< of the table, counted from 1
  LinkingSite Site;      ///< in the code page
};

/// The words that a first line may use, for the help.
[[nodiscard]] std::string PartnerColumnsHelp();

/// The partners of a table in UTF-8, or in the code page when it is no UTF-8. Line ends and tabs in a cell
/// become blanks, and blanks at its ends are cut. Returns one line that says what is wrong with the table;
/// then nothing of it is to be used.
[[nodiscard]] std::variant<std::vector<Partner>, std::string> ReadPartners(std::string_view text,
                                                                           const TextCodec& codec);

}  // namespace requite
