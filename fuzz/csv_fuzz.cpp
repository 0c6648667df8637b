// SPDX-License-Identifier: MIT
// Any table: what is read must come back when it is written with every cell in quotes; and a cell written for
// a spreadsheet is read as one cell that none would run.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/csv_reader.h"
#include "platform/quoting.h"
#include "platform/utf8_characters.h"

namespace {

std::string InQuotes(std::string_view cell) {
  std::string quoted = "\"";
  for (const char c : cell) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + '"';
}

void Require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace requite;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const char separator = CsvSeparator(text);
  const auto read = ReadCsv(text, separator);
  if (const auto* rows = std::get_if<std::vector<CsvRow>>(&read)) {
    std::string written;
    for (const CsvRow& row : *rows) {
      for (std::size_t cell = 0; cell < row.Cells.size(); ++cell) {
        if (cell > 0) written += separator;
        written += InQuotes(row.Cells[cell]);
      }
      written += "\r\n";
    }
    const auto again = ReadCsv(written, separator);
    Require(std::holds_alternative<std::vector<CsvRow>>(again));
    const auto& same = std::get<std::vector<CsvRow>>(again);
    Require(same.size() == rows->size());
    for (std::size_t row = 0; row < same.size(); ++row) Require(same[row].Cells == (*rows)[row].Cells);
  }

  const std::string cell = CsvCell(text);
  Require(IsUtf8(cell) && IsUtf8(JsonString(text)) && IsUtf8(XmlText(text)));
  const auto one = ReadCsv("," + cell, ',');
  Require(std::holds_alternative<std::vector<CsvRow>>(one));
  const CsvRow& row = std::get<std::vector<CsvRow>>(one).at(0);
  Require(row.Cells.size() == 2);
  const std::size_t first = row.Cells[1].find_first_not_of(' ');
  Require(first == std::string::npos ||
          std::string_view("=+-@\t\r\n").find(row.Cells[1][first]) == std::string_view::npos);
  return 0;
}
