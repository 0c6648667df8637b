// SPDX-License-Identifier: MIT
// Standard output that keeps the reason why it could not be written.
#pragma once

#include <array>
#include <streambuf>

namespace requite {

/// A stream buffer over a descriptor. After the first failure it accepts and drops everything: the
/// program runs on without its output.
class OutputBuffer : public std::streambuf {
 public:
  explicit OutputBuffer(int descriptor);
  ~OutputBuffer() override;
  OutputBuffer(const OutputBuffer&) = delete;
  OutputBuffer& operator=(const OutputBuffer&) = delete;

  /// The errno of the first failure, or 0. A reader that has gone away is no failure.
  [[nodiscard]] int Failure() const { return failure_; }

 protected:
  int_type overflow(int_type c) override;
  int sync() override;

 private:
  void Send();

  int descriptor_;
  int failure_ = 0;
  bool dropping_ = false;
  std::array<char, 8192> buffer_{};
};

}  // namespace requite
