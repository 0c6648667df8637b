// SPDX-License-Identifier: MIT
// One pass over the text, cell by cell.
#include "platform/csv_reader.h"

#include <algorithm>
#include <array>
#include <optional>

namespace requite {
namespace {

bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }

class Reader {
 public:
  Reader(std::string_view text, char separator) : text_(text), separator_(separator) {}

  [[nodiscard]] bool AtEnd() const { return at_ == text_.size(); }
  [[nodiscard]] bool AtLineEnd() const { return AtEnd() || IsLineEnd(text_[at_]); }
  [[nodiscard]] std::size_t Line() const { return line_; }

  /// The cells up to the end of a line, which is passed. Nothing after a fault.
  std::optional<CsvRow> Row() {
    CsvRow row{line_, {}};
    do {
      std::optional<std::string> cell = Cell();
      if (!cell) return std::nullopt;
      row.Cells.push_back(*std::move(cell));
    } while (TakeSeparator());
    TakeLineEnd();
    return row;
  }

  void TakeLineEnd() {
    if (AtEnd()) return;
    if (text_.substr(at_, 2) == "\r\n") ++at_;
    ++at_;
    ++line_;
  }

  CsvFault Fault;

 private:
  bool TakeSeparator() {
    const bool there = !AtEnd() && text_[at_] == separator_;
    if (there) ++at_;
    return there;
  }

  void PassBlanks() {
    while (!AtEnd() && text_[at_] == ' ') ++at_;
  }

  std::optional<std::string> Cell() {
    const std::size_t begin = at_;
    PassBlanks();
    if (!AtEnd() && text_[at_] == '"') return QuotedCell();
    while (!AtLineEnd() && text_[at_] != separator_) ++at_;
    return std::string(text_.substr(begin, at_ - begin));
  }

  std::optional<std::string> QuotedCell() {
    const std::size_t opened = line_;
    std::string cell;
    for (++at_;; ++at_) {
      if (AtEnd()) return Fail(opened, "a quote that is opened here is never closed");
      if (text_[at_] == '"') {
        ++at_;
        if (AtEnd() || text_[at_] != '"') break;
      }
      const bool endsLine = text_[at_] == '\n' || (text_[at_] == '\r' && text_.substr(at_, 2) != "\r\n");
      if (endsLine) ++line_;
      cell += text_[at_];
    }
    PassBlanks();
    if (!AtLineEnd() && text_[at_] != separator_) return Fail(line_, "text follows a closing quote");
    return cell;
  }

  std::nullopt_t Fail(std::size_t line, const char* words) {
    Fault = {line, words};
    return std::nullopt;
  }

  std::string_view text_;
  char separator_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
};

}  // namespace

char CsvSeparator(std::string_view text) {
  constexpr std::array kSeparators = {',', ';', '\t'};
  std::array<std::size_t, kSeparators.size()> counts{};
  bool quoted = false;
  for (const char c : text) {
    if (c == '"') quoted = !quoted;
    if (quoted) continue;
    if (IsLineEnd(c)) break;
    const auto found = std::find(kSeparators.begin(), kSeparators.end(), c);
    if (found != kSeparators.end()) ++counts.at(static_cast<std::size_t>(found - kSeparators.begin()));
  }
  const auto most = std::max_element(counts.begin(), counts.end());
  return kSeparators.at(static_cast<std::size_t>(most - counts.begin()));
}

std::variant<std::vector<CsvRow>, CsvFault> ReadCsv(std::string_view text, char separator) {
  Reader reader(text, separator);
  std::vector<CsvRow> rows;
  while (!reader.AtEnd()) {
    if (reader.AtLineEnd()) {
      reader.TakeLineEnd();
      continue;
    }
    std::optional<CsvRow> row = reader.Row();
    if (!row) return reader.Fault;
    rows.push_back(*std::move(row));
  }
  return rows;
}

}  // namespace requite
