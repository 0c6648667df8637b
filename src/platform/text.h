// SPDX-License-Identifier: MIT
// The vocabulary of text that the behaviour is written in: bytes of Windows-1252, compared in two ways.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace requite {

/// Text compare ignores letter case over the whole code page; binary compare does not.
enum class Compare { Text, Binary };

inline constexpr std::string_view kLineEnd = "\r\n";

/// The lower-case form of one byte of the code page; other bytes stay as they are.
[[nodiscard]] unsigned char FoldByte(unsigned char byte);

/// The whole text in lower case.
[[nodiscard]] std::string Lower(std::string_view text);
/// The same in a text that exists already and keeps its memory. `text` must not be part of it.
void SetLower(std::string& lower, std::string_view text);

/// Offset of the first occurrence of `what` at or after `from`, or npos.
/// An empty `what` is found at `from`, except that nothing is ever found in an empty `text`.
[[nodiscard]] std::size_t Find(std::string_view text, std::string_view what, Compare compare,
                               std::size_t from = 0);

[[nodiscard]] bool Contains(std::string_view text, std::string_view what, Compare compare);
[[nodiscard]] bool StartsWith(std::string_view text, std::string_view what, Compare compare);
[[nodiscard]] bool EndsWith(std::string_view text, std::string_view what, Compare compare);
[[nodiscard]] bool Equals(std::string_view a, std::string_view b, Compare compare);

/// Negative, zero or positive as `a` sorts before, with or after `b`, ignoring letter case.
[[nodiscard]] int CompareText(std::string_view a, std::string_view b);

/// A copy with every occurrence of `what` replaced, from the start of the text, without searching
/// what was put in. An empty `what` changes nothing.
[[nodiscard]] std::string Replace(std::string_view text, std::string_view what, std::string_view with,
                                  Compare compare);

/// Replace, in place. Returns whether anything was found; a text without `what` is not touched.
bool ReplaceIn(std::string& text, std::string_view what, std::string_view with, Compare compare);

/// The pieces between the separators; an empty text has no pieces. `separator` is not empty.
[[nodiscard]] std::vector<std::string> Split(std::string_view text, std::string_view separator);

/// The text without blanks (and only blanks) at both ends.
[[nodiscard]] std::string_view Trim(std::string_view text);

/// The first or last `count` bytes; the whole text where it is shorter.
[[nodiscard]] std::string_view Left(std::string_view text, std::size_t count);
[[nodiscard]] std::string_view Right(std::string_view text, std::size_t count);

/// The text before the first occurrence of `mark`; the whole text where it has no `mark`.
[[nodiscard]] std::string_view Before(std::string_view text, char mark);

/// True for an empty text and for a single blank, the two forms of "nothing entered".
[[nodiscard]] bool IsEmptyOrBlank(std::string_view text);

/// The number in decimal, filled up with leading zeros to `width` characters.
[[nodiscard]] std::string ZeroPadded(std::int64_t number, std::size_t width);

/// The number that a text holds, read the strict way: blanks around it, a sign, a fraction and an
/// exponent are allowed, and one half is rounded to the even neighbour.
/// Throws RuntimeFailure: TypeMismatch for a text that is not a number, Overflow for one out of range.
[[nodiscard]] std::int16_t ReadInt16(std::string_view text);
[[nodiscard]] std::int32_t ReadInt32(std::string_view text);

}  // namespace requite
