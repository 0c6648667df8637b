// SPDX-License-Identifier: MIT
// The one range in which two versions of a text differ. Only that range is rewritten, in a widget or a
// record, so the cursor, the selection and bytes that the toolkit cannot keep stay as they are.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace requite {

struct TextChange {
  qsizetype At = 0;       ///< characters before it
  qsizetype Removed = 0;  ///< characters of the old text
  QString Added;          ///< what replaces them
};

[[nodiscard]] TextChange ChangeBetween(const QString& before, const QString& after);

/// The position of a cursor after the change. One at the end of the text stays at its end.
[[nodiscard]] qsizetype PlaceAfter(qsizetype place, const TextChange& change);

/// A record's text as the toolkit's document has it: one character (U+2029) for each line end, which may be
/// CR LF, CR or LF.
[[nodiscard]] QString LinesOf(std::string_view bytes);

/// `bytes` after `change`, which counts characters of LinesOf(bytes). New line ends are CR LF, and a new
/// character outside the code page is a "?"; every other byte is kept.
[[nodiscard]] std::string WithChange(std::string_view bytes, const TextChange& change);

}  // namespace requite
