// SPDX-License-Identifier: MIT
// Formats dates, times and numbers by the locale.
#include "qt/services/system_clock.h"

#include <QDateTime>
#include <optional>

#include "qt/services/code_page.h"

namespace requite {
namespace {

constexpr char32_t kNoBreakBlank = 0xA0;

/// The character of the code page nearest to a sign in a number. The decimal and the grouping sign of a
/// locale stay different. Nothing for a mark that only changes the writing direction.
std::optional<char32_t> NearestSign(char32_t sign) {
  switch (sign) {
    case 0x066B: return U',';    // Arabic decimal sign
    case 0x066C: return 0x2019;  // Arabic grouping sign
    case 0x2E41: return U',';    // Adlam grouping sign
    case 0x2212: return U'-';
    case 0x061C:
    case 0x200E:
    case 0x200F: return std::nullopt;
    default: break;
  }
  if (sign > 0x7F && QChar::isSpace(sign)) return kNoBreakBlank;
  return sign;
}

/// The number with ASCII digits and the locale's signs, or the nearest in the code page.
std::string InCodePage(const QString& figure) {
  std::u32string text;
  for (const char32_t each : figure.toStdU32String()) {
    const int digit = QChar::digitValue(each);
    const std::optional<char32_t> sign = digit >= 0 ? char32_t(U'0' + digit) : NearestSign(each);
    if (sign) text += *sign;
  }
  return FromUnicode(QString::fromStdU32String(text));
}

/// The locale's text if the code page has its letters, else the fallback. Spaces of other widths become
/// no-break spaces first.
std::string InCodePageOr(QString localText, const QString& fallback) {
  for (QChar& each : localText) {
    if (each.unicode() > 0x7F && each.isSpace()) each = QChar(kNoBreakBlank);
  }
  std::string bytes = FromUnicode(localText);
  return ToUnicode(bytes) == localText ? bytes : FromUnicode(fallback);
}

}  // namespace

std::string SystemClock::ShortDate() {
  const QDate today = QDate::currentDate();
  return InCodePageOr(locale_.toString(today, QLocale::ShortFormat), today.toString(Qt::ISODate));
}

std::string SystemClock::ShortTime() {
  const QTime now = QTime::currentTime();
  return InCodePageOr(locale_.toString(now, QLocale::ShortFormat), now.toString(QStringLiteral("HH:mm")));
}

std::string SystemClock::TwoDecimals(double value) {
  return InCodePage(locale_.toString(Rounded(value), 'f', 2));
}

}  // namespace requite
