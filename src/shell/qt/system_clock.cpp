// SPDX-License-Identifier: MIT
// Dates, times and numbers by the locale.
#include "shell/qt/system_clock.h"

#include <QDateTime>
#include <cmath>

#include "shell/qt/code_page.h"

namespace requite {

std::string SystemClock::ShortDate() {
  return FromUnicode(locale_.toString(QDate::currentDate(), QLocale::ShortFormat));
}

std::string SystemClock::ShortTime() {
  return FromUnicode(locale_.toString(QTime::currentTime(), QLocale::ShortFormat));
}

std::string SystemClock::IsoDateTime() {
  return QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toStdString();
}

std::string SystemClock::TwoDecimals(double value) {
  // Rounded as it is written in decimal: 1.005 is a half to the reader, although its binary form lies
  // a little below.
  constexpr int kDecimalDigits = 15;
  const double hundredths = QString::number(value * 100, 'g', kDecimalDigits).toDouble();
  return FromUnicode(locale_.toString(std::round(hundredths) / 100, 'f', 2));
}

}  // namespace requite
