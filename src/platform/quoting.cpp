// SPDX-License-Identifier: MIT
// The three ways of quoting, one character at a time.
#include "platform/quoting.h"

#include "platform/utf8_characters.h"

namespace requite {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

bool IsLayout(char32_t c) { return c == '\t' || c == '\n' || c == '\r'; }

std::string Hex(char32_t number, unsigned digits) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string hex;
  while (digits > 0) hex += kDigits[number >> --digits * 4 & 0xFU];
  return hex;
}

/// As the console shows it.
std::string Shown(char32_t control) { return "\\x" + Hex(control, 2); }

/// The whole text, of which `quote` gives each character its form.
template <class Quote>
std::string Quoted(std::string_view utf8, const Quote& quote) {
  std::string quoted;
  quoted.reserve(utf8.size() + 2);
  while (!utf8.empty()) {
    const Utf8Character next = TakeCharacter(utf8);
    quoted += next.Valid ? quote(next) : std::string(kReplacement);
  }
  return quoted;
}

std::string InJson(const Utf8Character& c) {
  switch (c.Code) {
    case '"': return "\\\"";
    case '\\': return "\\\\";
    case '\n': return "\\n";
    case '\r': return "\\r";
    case '\t': return "\\t";
    default: break;
  }
  const bool plain = !IsControl(c.Code) && !ChangesDirection(c.Code);
  return plain ? std::string(c.Bytes) : "\\u" + Hex(c.Code, 4);
}

std::string InXml(const Utf8Character& c) {
  switch (c.Code) {
    case '&': return "&amp;";
    case '<': return "&lt;";
    case '>': return "&gt;";
    case '"': return "&quot;";
    // An attribute would have blanks instead of these characters themselves.
    case '\t': return "&#9;";
    case '\n': return "&#10;";
    case '\r': return "&#13;";
    // These two are no characters, and XML forbids them in every form.
    case 0xFFFE:
    case 0xFFFF: return std::string(kReplacement);
    default: return IsControl(c.Code) ? Shown(c.Code) : std::string(c.Bytes);
  }
}

std::string InCsv(const Utf8Character& c) {
  if (IsControl(c.Code) && !IsLayout(c.Code)) return Shown(c.Code);
  return c.Code == '"' ? "\"\"" : std::string(c.Bytes);
}

/// Some spreadsheets pass over the blanks at the start.
bool IsFormula(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first != std::string_view::npos &&
         std::string_view("=+-@\t\r\n").find(text[first]) != std::string_view::npos;
}

}  // namespace

std::string JsonString(std::string_view utf8) { return '"' + Quoted(utf8, InJson) + '"'; }

std::string XmlText(std::string_view utf8) { return Quoted(utf8, InXml); }

std::string CsvCell(std::string_view utf8) {
  std::string cell = Quoted(utf8, InCsv);
  if (IsFormula(utf8)) cell.insert(0, 1, '\'');
  // Blanks at an end would be cut by some readers.
  const bool blanks = cell.starts_with(' ') || cell.ends_with(' ');
  if (!blanks && cell.find_first_of("\",;\t\r\n") == std::string::npos) return cell;
  return '"' + cell + '"';
}

}  // namespace requite
