// SPDX-License-Identifier: MIT
// Takes one line apart into what stands around each of its "@".
#pragma once

#include <cstddef>
#include <string>

namespace requite {

/// Who hears of what a line holds.
class EmailLineReader {
 public:
  virtual ~EmailLineReader() = default;
  /// So many characters have been looked at since the last call: events may run. False ends the line.
  [[nodiscard]] virtual bool GoesOn(std::size_t characters) = 0;
  /// The two halves around an "@", cleaned; either may be empty. Most are no address.
  virtual void TakeHalves(const std::string& left, const std::string& right) = 0;
};

/// Reads the line to its end. False when the reader ended it before.
bool ReadEmailLine(std::string line, EmailLineReader& reader);

}  // namespace requite
