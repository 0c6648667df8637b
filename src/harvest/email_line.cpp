// SPDX-License-Identifier: MIT
// One "@" after the other. What looks like a slip in it (an address near the start of a line is lost, a
// hyphen goes, "&rt;" is no entity) is how addresses have always been read here, and stays.
#include "harvest/email_line.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "harvest/email_tail.h"
#include "platform/text.h"

namespace requite {
namespace {

constexpr std::size_t kLongHalf = 256;
constexpr std::size_t kLeftHalf = 40;  ///< characters kept up to an "@" that stands further in

using Characters = std::array<bool, 256>;

constexpr Characters MakeCharacters(std::string_view members) {
  Characters set{};
  for (const char c : members) set[static_cast<unsigned char>(c)] = true;
  return set;
}

/// What is cleaned away; the right half loses its commas as well, and neither loses its "&".
constexpr Characters kCleanedOfLeft = MakeCharacters(":\" <>[]()?=*/-\r\n;");
constexpr Characters kCleanedOfRight = MakeCharacters(":\" <>[]()?=,*/-\r\n;");

std::string Clean(std::string_view text, const Characters& cleaned) {
  std::string clean;
  clean.reserve(text.size());
  for (const char c : text) {
    if (!cleaned[static_cast<unsigned char>(c)]) clean += c;
  }
  return clean;
}

/// Grows leftward from the two characters in front of the final "@", until a stop character is inside.
std::string_view LeftHalf(std::string_view piece) {
  if (piece.size() < 3) return {};
  const std::size_t end = piece.size() - 1;
  std::size_t begin = end - 2;
  if (IsStopCharacter(piece[end - 1])) return piece.substr(begin, end - begin);
  while (begin > 0 && !IsStopCharacter(piece[begin])) --begin;
  return piece.substr(begin, end - begin);
}

/// Grows rightward from the first two characters, until a stop character is inside.
std::size_t RightLength(EmailTail& tail) {
  const std::size_t length = tail.Length();
  return length < 2 ? 0 : std::max<std::size_t>(2, std::min(tail.FirstStop() + 1, length));
}

/// Of a longer text in front of the first "@" only its end is left; of a shorter one nothing, and the text up
/// to the next "@" is the left half then. Returns what ends in the "@" that counts, or an empty text.
std::string TakeToAt(EmailTail& tail) {
  const std::size_t place = tail.FirstAt() + 1;
  tail.TakeEverywhere(place > kLeftHalf ? place - kLeftHalf : place);
  const std::size_t next = tail.FirstAt();
  return tail.TakeEverywhere(next == std::string_view::npos ? 0 : next + 1);
}

/// A half of megabytes comes again and again, less its front, on a line without stop characters; most of them
/// need not be looked at beyond their beginning.
void TakeHalves(std::string_view piece, std::size_t right, const EmailTail& tail, EmailLineReader& reader) {
  const std::string left = Clean(LeftHalf(piece), kCleanedOfLeft);
  if (right > kLongHalf && !reader.MayBeAddress(left, tail.Front(kLongHalf))) return;
  reader.TakeHalves(left, tail.Front(right));
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
    if (!reader.GoesOn(piece.size() + right)) return false;
    if (tail.HasDot()) TakeHalves(piece, right, tail, reader);
    // One character behind the stop goes too; where there is none to take, the text stays whole.
    const std::size_t cut = std::max<std::size_t>(right, 1) + 1;
    if (cut <= tail.Length()) tail.TakeFront(cut);
  }
  return true;
}

}  // namespace requite
