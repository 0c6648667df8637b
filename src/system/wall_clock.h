// SPDX-License-Identifier: MIT
// What the clock tells in the same way whatever the locale.
#pragma once

#include "platform/services.h"

namespace requite {

class WallClock : public Clock {
 public:
  [[nodiscard]] std::string IsoDateTime() override;
  [[nodiscard]] std::string UtcDateTime() override;

 protected:
  /// Rounded to two digits in decimal: 1.005 ends in a half for the reader, although its binary form is a
  /// little less.
  [[nodiscard]] static double Rounded(double value);
};

/// As the locales "C" and "POSIX" write it: "5 Mar 2026", "07:08:09" and "1,006.00".
class PlainClock : public WallClock {
 public:
  [[nodiscard]] std::string ShortDate() override;
  [[nodiscard]] std::string ShortTime() override;
  [[nodiscard]] std::string TwoDecimals(double value) override;
};

}  // namespace requite
