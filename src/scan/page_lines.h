// SPDX-License-Identifier: MIT
// The lines of a prepared page, each with what the analyser asks of it; the page is searched once a mark.
#pragma once

#include <cstddef>
#include <string_view>

#include "platform/text_search.h"
#include "scan/slices.h"

namespace requite {

/// In the text each "href=" is in lower case at the start of a line. The text must outlive the lines.
class PageLines {
 public:
  PageLines(std::string_view text, Slices slices) : text_(text), slices_(std::move(slices)) {}

  [[nodiscard]] bool AtEnd() const { return next_ >= text_.size(); }
  /// Goes on to the next line; not to be called at the end. Lines end at CR or CR LF.
  void Advance();

  /// The current line, without its end; empty before the first Advance.
  [[nodiscard]] std::string_view Line() const { return text_.substr(begin_, end_ - begin_); }
  /// Whether the line says that the page has moved. Lets events run in long lines; false after a stop.
  [[nodiscard]] bool SaysMoved();
  /// Whether the line begins with "href=", as each line does that holds it.
  [[nodiscard]] bool HasHref() const { return Line().starts_with("href="); }

 private:
  /// A text that is searched on from line to line.
  class Mark {
   public:
    explicit Mark(std::string_view text) : finder_(text) {}

    /// Whether the mark begins before `end`, at or after `begin`, which never goes back.
    [[nodiscard]] bool IsIn(std::string_view text, std::size_t begin, std::size_t end, const Slices& slices);
    /// The place, when it is in.
    [[nodiscard]] std::size_t At() const { return at_; }

   private:
    TextFinder finder_;
    std::size_t at_ = std::string_view::npos;
    std::size_t searchedTo_ = 0;  ///< but for at_, the mark does not begin between the last `begin` and here
  };

  /// A title that says so; both titles end alike, and that end is what is searched.
  [[nodiscard]] bool HasMovedTitle();

  std::string_view text_;
  Slices slices_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  std::size_t next_ = 0;
  Mark found302_{"302 Found"};
  Mark moved301_{"301 Moved Permanently"};
  Mark titleEnd_{"moved</title>"};
};

}  // namespace requite
