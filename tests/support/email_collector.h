// SPDX-License-Identifier: MIT
// Holds the reading of a line for addresses against its plain form.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "harvest/email_line.h"
#include "harvest/email_pattern.h"
#include "support/plain_harvest.h"

namespace requite::test {

class EmailCollector : public EmailLineReader {
 public:
  explicit EmailCollector(const std::string& line) {
    AllRight = ReadEmailLine(line, *this) && FindsAll(line);
  }

  /// The candidates are those of the plain form in their order, but for some that are no addresses; and
  /// what was told of long ones is so.
  bool AllRight = false;
  int LongAddresses = 0;

 private:
  bool FindsAll(const std::string& line) const {
    std::size_t next = 0;
    for (const std::string& candidate : PlainCandidates(line)) {
      if (next < candidates_.size() && candidates_[next] == candidate) {
        ++next;
      } else if (pattern_.IsValidEmail(candidate)) {
        return false;
      }
    }
    return next == candidates_.size() && longAreRight_;
  }

  bool GoesOn(std::size_t) override { return true; }
  bool TakeLongAddress(std::size_t staying) override {
    ++LongAddresses;
    isLong_ = true;
    staying_ = staying;
    return false;
  }
  void TakeHalves(const std::string& left, std::string_view right) override {
    const std::string clean = CleanRight(right);
    const std::string candidate = left + "@" + clean;
    if (isLong_) {
      longAreRight_ = longAreRight_ && pattern_.IsValidEmail(candidate) &&
                      staying_ <= Replace(clean, "www.", "", Compare::Binary).size();
    }
    isLong_ = false;
    if (right.find('.') != std::string_view::npos) candidates_.push_back(candidate);
  }

  EmailPattern pattern_;
  std::vector<std::string> candidates_;
  bool isLong_ = false;
  std::size_t staying_ = 0;
  bool longAreRight_ = true;
};

}  // namespace requite::test
