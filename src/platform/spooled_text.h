// SPDX-License-Identifier: MIT
// A text that may be larger than the memory: built piece by piece, then written to files.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace requite {

/// Keeps the end of the text in memory and the rest in a file without a name, which vanishes with the
/// program however it ends. Where that file cannot be written, the text stays in memory: a full disk
/// fails the final file, not the building of the text.
class SpooledText {
 public:
  static constexpr std::size_t kMostInMemory = std::size_t{1} << 20;

  /// `folder` is where the nameless file is made when it is needed.
  explicit SpooledText(std::string folder) : folder_(std::move(folder)) {}
  ~SpooledText();
  SpooledText(const SpooledText&) = delete;
  SpooledText& operator=(const SpooledText&) = delete;

  SpooledText& Append(std::string_view text) {
    tail_.append(text);
    if (tail_.size() >= kMostInMemory) Spool();
    return *this;
  }

  /// Appends the text to a file, whole or not at all, with the failures of AppendToFile.
  void AppendTo(const std::string& path) const;

  /// Passes the text to `take` in order, in pieces of at most about kMostInMemory. Throws RuntimeFailure when
  /// the text cannot be read back; failures of `take` pass through.
  void ForEachPiece(const std::function<void(std::string_view)>& take) const;

 private:
  void Spool();

  std::string folder_;
  std::string tail_;
  int descriptor_ = -1;
  std::size_t spooled_ = 0;  ///< bytes in the file, which come before the tail
  bool inMemoryOnly_ = false;
};

}  // namespace requite
