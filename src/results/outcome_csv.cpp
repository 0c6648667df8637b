// SPDX-License-Identifier: MIT
// A scan as a table for spreadsheets.
#include "platform/quoting.h"
#include "platform/text.h"
#include "results/outcome.h"

namespace requite {
namespace {

void AppendRow(std::string& csv, const ScanOutcome::Row& row) {
  for (const std::string& field : row) {
    if (&field != &row.front()) csv += ',';
    csv += CsvCell(field);
  }
  csv += kLineEnd;
}

}  // namespace

std::string CsvOfOutcome(const ScanOutcome& outcome) {
  std::string csv;
  AppendRow(csv, outcome.Captions);
  for (const ScanOutcome::Row& row : outcome.Rows) AppendRow(csv, row);
  return csv;
}

}  // namespace requite
