// SPDX-License-Identifier: MIT
// The lines of a page file, each with what the analyser asks of it; the page is searched once a mark.
#pragma once

#include <cstddef>
#include <string_view>

#include "platform/text_search.h"

namespace requite {

/// In a prepared text each "href=" stands in lower case at the start of a line; any other text may hold
/// it anywhere.
enum class PageText { Prepared, Any };

/// The text must outlive the lines.
class PageLines {
 public:
  PageLines(std::string_view text, PageText origin) : text_(text), origin_(origin) {}

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
  [[nodiscard]] std::string_view FromHref() const;

 private:
  /// The first place of a mark at or behind the line in hand.
  struct Mark {
    TextFinder Finder;
    std::size_t At = 0;
    bool Searched = false;

    /// Whether the mark begins before `end`, at or behind `begin`.
    [[nodiscard]] bool IsIn(std::string_view text, std::size_t begin, std::size_t end);
    /// Goes on to the next place behind the one at hand.
    void SearchOn(std::string_view text) { At = Finder.Find(text, At + 1); }
  };

  /// A title that says so; both titles end alike, and that end is what is searched.
  [[nodiscard]] bool HasMovedTitle();

  std::string_view text_;
  PageText origin_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  std::size_t next_ = 0;
  Mark href_{TextFinder("href=")};
  Mark found302_{TextFinder("302 Found")};
  Mark moved301_{TextFinder("301 Moved Permanently")};
  Mark titleEnd_{TextFinder("moved</title>")};
};

}  // namespace requite
