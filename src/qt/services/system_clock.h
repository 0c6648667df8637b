// SPDX-License-Identifier: MIT
// The wall clock and numbers, as the user's locale writes them.
#pragma once

#include <QLocale>

#include "system/wall_clock.h"

namespace requite {

class SystemClock : public WallClock {
 public:
  explicit SystemClock(const QLocale& locale = QLocale::system()) : locale_(locale) {}

  [[nodiscard]] std::string ShortDate() override;
  [[nodiscard]] std::string ShortTime() override;
  [[nodiscard]] std::string TwoDecimals(double value) override;

 private:
  QLocale locale_;
};

}  // namespace requite
