// SPDX-License-Identifier: MIT
// The header, and the cells of each row.
#include "console/partner_table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>

#include "model/project_text.h"
#include "platform/csv_reader.h"
#include "platform/schemes.h"
#include "platform/text.h"
#include "platform/utf8_characters.h"

namespace requite {
namespace {

struct PartnerColumn {
  std::string LinkingSite::*Target;
  const char* Meaning;
  std::array<std::string_view, 6> Words;  ///< in lower case; unused ones are empty
};

constexpr std::array<PartnerColumn, 5> kColumns = {{
    {&LinkingSite::WebsiteUrl, "website", {"website", "website url", "url", "link", "site", "linking site"}},
    {&LinkingSite::LinksExpected, "number of links", {"#", "expected", "links", "links expected"}},
    {&LinkingSite::LinkPageUrl, "HTML link", {"html link", "link page", "link page url"}},
    {&LinkingSite::LinkPageText, "HTML name", {"html name", "name", "link text", "link page text"}},
    {&LinkingSite::Description, "description", {"description"}},
}};

std::string WordsOf(const PartnerColumn& column) {
  std::string words;
  for (const std::string_view each : column.Words) {
    if (!each.empty()) words.append(words.empty() ? "" : ", ").append(each);
  }
  return words;
}

/// "Link_Page" and "link page" are one word.
std::string HeaderWord(std::string_view cell) {
  std::string word = Lower(cell);
  std::replace(word.begin(), word.end(), '_', ' ');
  std::replace(word.begin(), word.end(), '-', ' ');
  return std::string(Trim(word));
}

/// The index in kColumns, or its size.
std::size_t ColumnOf(const std::string& word) {
  const auto has = [&word](const PartnerColumn& column) {
    return !word.empty() && std::find(column.Words.begin(), column.Words.end(), word) != column.Words.end();
  };
  return static_cast<std::size_t>(std::find_if(kColumns.begin(), kColumns.end(), has) - kColumns.begin());
}

bool IsControl(char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }

/// A project file begins the lines of other records with these words.
bool BeginsLikeAMarker(std::string_view website) {
  constexpr std::array kMarkers = {marker::kNextSite,   marker::kHtml1,    marker::kHtml2,
                                   marker::kHtml3,      marker::kResult,   marker::kRule,
                                   marker::kPostSingle, marker::kPostMulti};
  return std::any_of(kMarkers.begin(), kMarkers.end(),
                     [website](std::string_view each) { return website.starts_with(each); });
}

/// Whether the text is a number of links that a scan can expect.
bool IsCount(const std::string& text) {
  std::int16_t number = 0;
  const char* end = text.data() + text.size();
  const auto [read, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && read == end && number >= 0;
}

/// Each step returns what is wrong, or an empty text.
class TableReader {
 public:
  TableReader(const TextCodec& codec, bool isUtf8) : codec_(codec), isUtf8_(isUtf8) {}

  std::string ReadHeader(const CsvRow& row) {
    width_ = row.Cells.size();
    for (std::size_t cell = 0; cell < row.Cells.size(); ++cell) {
      const std::size_t column = ColumnOf(HeaderWord(row.Cells[cell]));
      if (column == kColumns.size()) continue;
      std::optional<std::size_t>& place = places_.at(column);
      if (place) {
        return "two columns hold the " + std::string(kColumns.at(column).Meaning) + ": \"" +
               row.Cells[*place] + "\" and \"" + row.Cells[cell] + '"';
      }
      place = cell;
    }
    if (places_[0]) return {};
    return "no column is named as the website (" + WordsOf(kColumns[0]) + ')';
  }

  std::string ReadRow(const CsvRow& row, LinkingSite& site) const {
    for (std::size_t cell = width_; cell < row.Cells.size(); ++cell) {
      if (!Trim(row.Cells[cell]).empty()) return "more cells than the first line has";
    }
    for (std::size_t column = 0; column < kColumns.size(); ++column) {
      const std::optional<std::size_t> place = places_.at(column);
      if (!place || *place >= row.Cells.size()) continue;
      std::string& field = site.*kColumns.at(column).Target;
      field = Text(row.Cells[*place]);
      if (std::any_of(field.begin(), field.end(), IsControl)) return "a cell holds a control character";
      if (field.find('|') != std::string::npos)
        return "a cell holds a \"|\", which a project file cannot keep";
    }
    if (std::string why = WhyNoWebsite(row, site); !why.empty()) return why;
    if (site.LinksExpected.empty()) site.LinksExpected = LinkingSite().LinksExpected;
    if (IsCount(site.LinksExpected)) return {};
    return '"' + row.Cells[*places_[1]] + "\" is no number of links from 0 to 32767";
  }

 private:
  std::string WhyNoWebsite(const CsvRow& row, LinkingSite& site) const {
    if (isUtf8_ && codec_.ToUtf8(site.WebsiteUrl) != Cleaned(row.Cells[*places_[0]])) {
      return "the website has letters that the program does not know; international names are written as "
             "\"xn--...\"";
    }
    RemoveSchemes(site.WebsiteUrl);
    site.WebsiteUrl = Trim(site.WebsiteUrl);
    if (site.WebsiteUrl.empty()) return "the website is missing";
    if (BeginsLikeAMarker(site.WebsiteUrl)) return "the website begins like another line of a project file";
    return {};
  }

  [[nodiscard]] static std::string Cleaned(std::string cell) {
    ReplaceIn(cell, kLineEnd, " ", Compare::Binary);
    std::replace_if(
        cell.begin(), cell.end(), [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
    return std::string(Trim(cell));
  }
  [[nodiscard]] std::string Text(const std::string& cell) const {
    return isUtf8_ ? codec_.FromUtf8(Cleaned(cell)) : Cleaned(cell);
  }

  const TextCodec& codec_;
  bool isUtf8_;
  std::size_t width_ = 0;
  std::array<std::optional<std::size_t>, kColumns.size()>
      places_;  ///< in a row, of each column that is there
};

bool IsBlank(const CsvRow& row) {
  return std::all_of(row.Cells.begin(), row.Cells.end(),
                     [](const std::string& cell) { return Trim(cell).empty(); });
}

std::string AtLine(std::size_t line, const std::string& why) {
  return "line " + std::to_string(line) + ": " + why;
}

}  // namespace

std::string PartnerColumnsHelp() {
  std::string help;
  for (const PartnerColumn& column : kColumns) {
    help += std::string("  ") + column.Meaning + ": " + WordsOf(column) + '\n';
  }
  return help;
}

std::variant<std::vector<Partner>, std::string> ReadPartners(std::string_view text, const TextCodec& codec) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF")) return "is UTF-16: save it as UTF-8";
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  const auto read = ReadCsv(text, CsvSeparator(text));
  if (const auto* fault = std::get_if<CsvFault>(&read)) return AtLine(fault->Line, fault->Words);

  TableReader table(codec, IsUtf8(text));
  bool hasHeader = false;
  std::vector<Partner> partners;
  for (const CsvRow& row : std::get<std::vector<CsvRow>>(read)) {
    if (IsBlank(row)) continue;
    std::string why;
    if (hasHeader) {
      partners.push_back({row.Line, {}});
      why = table.ReadRow(row, partners.back().Site);
    } else {
      why = table.ReadHeader(row);
      hasHeader = true;
    }
    if (!why.empty()) return AtLine(row.Line, why);
  }
  if (!hasHeader) return "is empty";
  return partners;
}

}  // namespace requite
