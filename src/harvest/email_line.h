// SPDX-License-Identifier: MIT
// Splits a line into the text on both sides of each "@".
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace requite {

/// Receives what a line holds.
class EmailLineReader {
 public:
  virtual ~EmailLineReader() = default;
  /// `characters` more have been read: events may run. Returns false to end the line.
  [[nodiscard]] virtual bool GoesOn(std::size_t characters) = 0;
  /// An address whose right half is the whole rest of a long line. As the key of a website, that half
  /// keeps at least `staying` characters. Returns true when that is all the reader needs; after false,
  /// TakeHalves gets the text.
  [[nodiscard]] virtual bool TakeLongAddress(std::size_t staying) = 0;
  /// The two halves around an "@", the left one cleaned. Most are no address, and some of those are left
  /// out. Without a stop character `right` is the whole rest.
  virtual void TakeHalves(const std::string& left, std::string_view right) = 0;
};

/// The right half with what does not count removed.
[[nodiscard]] std::string CleanRight(std::string_view right);

/// Reads the line to its end. Returns false when the reader ended it early.
bool ReadEmailLine(std::string line, EmailLineReader& reader);

}  // namespace requite
