// SPDX-License-Identifier: MIT
// The lines of a prepared page, and what the analyser asks about each. Each mark is searched once per page.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "platform/hashed_text.h"
#include "platform/text_search.h"
#include "scan/slices.h"

namespace requite {

/// In the text, each "href=" is in lower case at the start of a line. The text must outlive this object.
class PageLines {
 public:
  PageLines(std::string_view text, Slices slices) : text_(text), slices_(std::move(slices)) {}

  /// A line of the text.
  struct Piece {
    std::size_t Begin = 0;
    std::size_t End = 0;               ///< without its end
    std::optional<HashedText> Link{};  ///< the value of its href, if that is short and easily cut out
  };

  [[nodiscard]] bool AtEnd() const { return current_ + 1 >= ahead_ && next_ >= text_.size(); }
  /// Moves to the next line; must not be called at the end. Lines end at CR or CR LF.
  void Advance() {
    if (++current_ >= ahead_) ReadAhead();
  }
  /// The current line and those after it that have been read together with it, when it is the first of them;
  /// else nothing.
  [[nodiscard]] std::span<const Piece> JustRead() const {
    return {pieces_.data(), current_ == 0 ? ahead_ : 0};
  }

  /// The current line without its end; empty before the first Advance.
  [[nodiscard]] std::string_view Line() const { return LineOf(Current()); }
  /// The value of the current line's href, if it is short and easily cut out.
  [[nodiscard]] const std::optional<HashedText>& Link() const { return Current().Link; }
  /// Whether the line says that the page has moved. Lets events run in long lines; false after a stop.
  [[nodiscard]] bool SaysMoved();
  /// Whether the line has an "href=", which is always at its start.
  [[nodiscard]] bool HasHref() const { return IsHref(Line()); }

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

  static bool IsHref(std::string_view line) { return line.starts_with("href="); }
  [[nodiscard]] const Piece& Current() const { return pieces_[current_]; }
  [[nodiscard]] std::string_view LineOf(const Piece& piece) const {
    return text_.substr(piece.Begin, piece.End - piece.Begin);
  }
  void ReadAhead();
  /// Whether a title says so. Both titles end in the same words, which are searched for.
  [[nodiscard]] bool HasMovedTitle();

  std::string_view text_;
  Slices slices_;
  std::array<Piece, 12> pieces_;
  std::size_t current_ = 0;
  std::size_t ahead_ = 0;  ///< pieces that were read
  std::size_t next_ = 0;   ///< where the line after them begins
  Mark found302_{"302 Found"};
  Mark moved301_{"301 Moved Permanently"};
  Mark titleEnd_{"moved</title>"};
};

}  // namespace requite
