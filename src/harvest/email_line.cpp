// SPDX-License-Identifier: MIT
// Goes from "@" to "@". Three things look like mistakes: an address near the start of a line is lost, a
// hyphen is removed, "&rt;" is no entity. They decide which addresses are found, and stay.
#include "harvest/email_line.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "harvest/email_characters.h"
#include "harvest/email_tail.h"
#include "platform/text.h"

namespace requite {
namespace {

constexpr std::size_t kLeftHalf = 40;  ///< characters kept before an "@" that is further in

std::string Clean(std::string_view text, const CharacterSet& cleaned) {
  std::string clean;
  clean.reserve(text.size());
  for (const char c : text) {
    if (!cleaned.Has(c)) clean += c;
  }
  return clean;
}

/// Grows to the left from the two characters before the final "@" until it includes a stop character.
std::string_view LeftHalf(std::string_view piece) {
  if (piece.size() < 3) return {};
  const std::size_t end = piece.size() - 1;
  std::size_t begin = end - 2;
  if (kStops.Has(piece[end - 1])) return piece.substr(begin, end - begin);
  while (begin > 0 && !kStops.Has(piece[begin])) --begin;
  return piece.substr(begin, end - begin);
}

/// Grows to the right from the first two characters until it includes a stop character.
std::size_t RightLength(EmailTail& tail) {
  const std::size_t length = tail.Length();
  return length < 2 ? 0 : std::max<std::size_t>(2, std::min(tail.FirstStop() + 1, length));
}

/// Keeps only the end of a long text before the first "@". A shorter one is dropped, and the text up to
/// the next "@" becomes the left half. Returns what ends in that "@", or an empty text.
std::string TakeToAt(EmailTail& tail) {
  const std::size_t place = tail.FirstAt() + 1;
  tail.TakeEverywhere(place > kLeftHalf ? place - kLeftHalf : place);
  const std::size_t next = tail.FirstAt();
  return tail.TakeEverywhere(next == std::string_view::npos ? 0 : next + 1);
}

/// Passes both halves on. Returns false when the reader ended the line.
bool TakeHalves(std::string_view piece, std::size_t right, EmailTail& tail, EmailLineReader& reader) {
  // A right half that is the whole rest stays in the line, so it comes again for the next "@", only
  // shorter. It may be megabytes long and must not be read each time.
  const bool comesAgain = right == tail.Length() && tail.IsIndexed();
  if (!reader.GoesOn(piece.size() + (comesAgain ? 0 : right))) return false;
  if (!tail.HasDot()) return true;
  const std::string left = Clean(LeftHalf(piece), kCleanedOfLeft);
  if (comesAgain && (!tail.HoldsOneAddress(left) || reader.TakeLongAddress(tail.Staying()))) return true;
  reader.TakeHalves(left, tail.Front(right));
  return true;
}

}  // namespace

std::string CleanRight(std::string_view right) { return Clean(right, kCleanedOfRight); }

bool ReadEmailLine(std::string line, EmailLineReader& reader) {
  ReplaceIn(line, "%40", "@", Compare::Binary);
  ReplaceIn(line, "%20", " ", Compare::Binary);
  ReplaceIn(line, "&lt;", "<", Compare::Binary);
  ReplaceIn(line, "&rt;", ">", Compare::Binary);
  EmailTail tail(std::move(line));
  while (tail.FirstAt() != std::string_view::npos) {
    const std::string piece = TakeToAt(tail);
    const std::size_t right = RightLength(tail);
    if (!TakeHalves(piece, right, tail, reader)) return false;
    // One character after the stop is removed too. Without one the text stays as it is.
    const std::size_t cut = std::max<std::size_t>(right, 1) + 1;
    if (cut <= tail.Length()) tail.TakeFront(cut);
  }
  return true;
}

}  // namespace requite
