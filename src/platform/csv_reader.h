// SPDX-License-Identifier: MIT
// Reads tables as spreadsheets save them: RFC 4180, and the ways in which people differ from it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace requite {

struct CsvRow {
  std::size_t Line = 0;  ///< of the text, counted from 1, where the row begins
  std::vector<std::string> Cells;
};

/// Why a text is no table.
struct CsvFault {
  std::size_t Line = 0;
  std::string Words;
};

/// The comma, semicolon or tab that is most often in the first line, outside quotes; a comma when none is.
[[nodiscard]] char CsvSeparator(std::string_view text);

/// The rows of a table, in time linear in the text; lines without any character are passed over. Lines end in
/// CR LF, LF or CR. A cell in double quotes may hold separators, line ends and doubled quotes; blanks around
/// its quotes are passed over. Elsewhere quotes are like other characters.
[[nodiscard]] std::variant<std::vector<CsvRow>, CsvFault> ReadCsv(std::string_view text, char separator);

}  // namespace requite
