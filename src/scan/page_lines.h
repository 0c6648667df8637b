// SPDX-License-Identifier: MIT
// The lines of a page file, each with what the analyser asks of it; the page is searched once a mark.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "platform/text_search.h"

namespace requite {

/// The text must outlive the lines.
class PageLines {
 public:
  explicit PageLines(std::string_view text) : text_(text) {}

  [[nodiscard]] bool AtEnd() const { return next_ >= text_.size(); }
  /// Goes on to the next line; not to be called at the end. Lines end at CR or CR LF.
  void Advance();

  /// The line in hand, without its end; empty before the first Advance.
  [[nodiscard]] std::string_view Line() const { return text_.substr(begin_, end_ - begin_); }
  /// Whether the line says that the page has moved.
  [[nodiscard]] bool SaysMoved();
  /// Whether the line holds "href=".
  [[nodiscard]] bool HasHref();
  /// The line from its first "href=" on; only for a line that has one.
  [[nodiscard]] std::string_view FromHref() const { return text_.substr(href_.At, end_ - href_.At); }

 private:
  /// The first place of a mark at or behind the line in hand.
  struct Mark {
    TextFinder Finder;
    std::size_t At = 0;
    bool Searched = false;

    /// Whether the mark begins before `end`, at or behind `begin`.
    [[nodiscard]] bool IsIn(std::string_view text, std::size_t begin, std::size_t end);
  };

  std::string_view text_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  std::size_t next_ = 0;
  Mark href_{TextFinder("href=")};
  std::array<Mark, 4> moved_{Mark{TextFinder("302 Found")}, Mark{TextFinder("301 Moved Permanently")},
                             Mark{TextFinder("<title>Document Moved</title>")},
                             Mark{TextFinder("<title>Object moved</title>")}};
};

}  // namespace requite
