// SPDX-License-Identifier: MIT
// The lines of a prepared page, and what the analyser asks about each. Each mark is searched once per page.
#pragma once

#include <cstddef>
#include <string_view>

#include "platform/text_search.h"
#include "scan/slices.h"

namespace requite {

/// In the text, each "href=" is in lower case at the start of a line. The text must outlive this object.
class PageLines {
 public:
  PageLines(std::string_view text, Slices slices) : text_(text), slices_(std::move(slices)) {}

  [[nodiscard]] bool AtEnd() const { return next_ >= text_.size(); }
  /// Moves to the next line; must not be called at the end. Lines end at CR or CR LF.
  void Advance();

  /// The current line without its end; empty before the first Advance.
  [[nodiscard]] std::string_view Line() const { return text_.substr(begin_, end_ - begin_); }
  /// Whether the line says that the page has moved. Lets events run in long lines; false after a stop.
  [[nodiscard]] bool SaysMoved();
  /// Whether the line has an "href=", which is always at its start.
  [[nodiscard]] bool HasHref() const { return Line().starts_with("href="); }

 private:
  /// A text to search for, with the place where it was found last.
  class Mark {
   public:
    explicit Mark(std::string_view text) : finder_(text) {}

    /// Whether the mark begins in `begin` to `end`. `begin` must not decrease from call to call.
    [[nodiscard]] bool IsIn(std::string_view text, std::size_t begin, std::size_t end, const Slices& slices);
    /// The offset of the mark after IsIn was true.
    [[nodiscard]] std::size_t At() const { return at_; }

   private:
    TextFinder finder_;
    std::size_t at_ = std::string_view::npos;
    std::size_t searchedTo_ = 0;  ///< apart from at_, no mark begins between the last `begin` and here
  };

  /// Whether a title says so. Both titles end in the same words, which are searched for.
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
