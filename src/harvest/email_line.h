// SPDX-License-Identifier: MIT
// Takes one line apart into what stands around each of its "@".
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace requite {

/// Who hears of what a line holds.
class EmailLineReader {
 public:
  virtual ~EmailLineReader() = default;
  /// So many characters have been looked at since the last call: events may run. False ends the line.
  [[nodiscard]] virtual bool GoesOn(std::size_t characters) = 0;
  /// An address whose right half is the whole rest of a long line. At least so many characters stay of that
  /// half as a website's key. True: that is all there is to know; false: TakeHalves brings its text.
  [[nodiscard]] virtual bool TakeLongAddress(std::size_t staying) = 0;
  /// The two halves around an "@", the left one cleaned. Most are no address, and some of those are left
  /// out. Where no stop character comes, `right` is the whole rest.
  virtual void TakeHalves(const std::string& left, std::string_view right) = 0;
};

/// The right half without what is cleaned away.
[[nodiscard]] std::string CleanRight(std::string_view right);

/// Reads the line to its end. False when the reader ended it before.
bool ReadEmailLine(std::string line, EmailLineReader& reader);

}  // namespace requite
