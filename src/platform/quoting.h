// SPDX-License-Identifier: MIT
// Puts any text into JSON, XML or CSV, so that it stays one value there and does nothing where it is shown.
#pragma once

#include <string>
#include <string_view>

namespace requite {

// All take and return UTF-8. A fault in it becomes U+FFFD, the replacement character.

/// The text as a JSON string, in its double quotes. Control characters, and those that change the direction
/// of the text around them, are written as \uXXXX.
[[nodiscard]] std::string JsonString(std::string_view utf8);

/// The text for the content of an XML element or for an attribute in double quotes. Control characters, most
/// of which XML forbids in every form, are shown as \xNN; tabs and line ends are kept.
[[nodiscard]] std::string XmlText(std::string_view utf8);

/// The text as a cell of a CSV table, in double quotes where RFC 4180 asks for them. A cell that a
/// spreadsheet would run as a formula gets an apostrophe in front, by which a spreadsheet knows a text.
/// Control characters are shown as \xNN; tabs and line ends are kept.
[[nodiscard]] std::string CsvCell(std::string_view utf8);

}  // namespace requite
