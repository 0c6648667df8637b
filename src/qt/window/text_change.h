// SPDX-License-Identifier: MIT
// The one stretch in which two versions of a text differ. Only that stretch is rewritten, in a widget as in a
// record: cursor and selection stay where they are, and so do bytes that the toolkit cannot keep.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace requite {

struct TextChange {
  qsizetype At = 0;       ///< characters before it
  qsizetype Removed = 0;  ///< characters of the old text
  QString Added;          ///< what the new text has instead
};

[[nodiscard]] TextChange ChangeBetween(const QString& before, const QString& after);

/// Where a cursor belongs after the change. One at the end of the text stays at its end.
[[nodiscard]] qsizetype PlaceAfter(qsizetype place, const TextChange& change);

/// A record's text as a document of the toolkit holds it: one character (U+2029) for each line end, whether
/// that is CR LF, CR or LF.
[[nodiscard]] QString LinesOf(std::string_view bytes);

/// `bytes` after `change`, which counts characters of LinesOf(bytes). New line ends are CR LF, and a new
/// character outside the code page is a "?"; every other byte is kept.
[[nodiscard]] std::string WithChange(std::string_view bytes, const TextChange& change);

}  // namespace requite
