// SPDX-License-Identifier: MIT
// Goes through the lines once. Whatever the text is, the time is linear in its size, which has a limit.
#include "qt/window/main_window/site_lines.h"

#include <QCoreApplication>
#include <QStringConverter>
#include <algorithm>
#include <unordered_set>

#include "platform/schemes.h"
#include "platform/text.h"
#include "qt/services/code_page.h"

namespace requite {
namespace {

constexpr qsizetype kLongestText = 2 << 20;  // characters
constexpr qsizetype kLongestLine = 2000;     // of any address in use
constexpr qsizetype kLongestReason = 80;
constexpr qsizetype kMostReasons = 1000;

QString Words(const char* text) { return QCoreApplication::translate("SiteLines", text); }

bool HasControls(const QString& line) {
  return std::any_of(line.begin(), line.end(), [](QChar c) { return c.category() == QChar::Other_Control; });
}

/// Two rows with the same key are the same site to the user.
std::string KeyOf(std::string site) {
  RemoveSchemes(site);
  while (site.ends_with('/')) site.pop_back();
  return Lower(site);
}

/// Why a line cannot be added, or nothing.
QString Reason(const QString& site, const std::string& bytes, bool withoutScheme) {
  if (site.size() > kLongestLine) return Words(QT_TRANSLATE_NOOP("SiteLines", "too long"));
  if (HasControls(site)) return Words(QT_TRANSLATE_NOOP("SiteLines", "not text"));
  if (ToUnicode(bytes) != site)
    return Words(QT_TRANSLATE_NOOP("SiteLines", "letters outside Western European (Windows-1252)"));
  std::string rest = bytes;
  if (withoutScheme) RemoveSchemes(rest);
  return IsEmptyOrBlank(rest) ? Words(QT_TRANSLATE_NOOP("SiteLines", "no address")) : QString();
}

}  // namespace

std::size_t SiteLines::Known() const {
  return static_cast<std::size_t>(std::count(IsKnown.begin(), IsKnown.end(), true));
}

SiteLines ReadSiteLines(const QString& text, const ListView& list, bool withoutScheme, std::size_t most) {
  SiteLines read;
  SiteLines tooMany;
  tooMany.TooMany = true;
  if (text.size() > kLongestText) return tooMany;
  std::unordered_set<std::string> known;
  for (std::size_t row = 0; row < list.RowCount(); ++row) known.insert(KeyOf(list.FieldAt(row, 0)));
  QString lines = text;
  for (const QString& line : lines.replace('\r', '\n').split('\n', Qt::SkipEmptyParts)) {
    const QString site = line.section('\t', 0, 0).trimmed();
    if (site.isEmpty()) continue;
    const std::string bytes = FromUnicode(site);
    if (const QString reason = Reason(site, bytes, withoutScheme); !reason.isEmpty()) {
      if (read.LeftOut.size() < kMostReasons) read.LeftOut << site.left(kLongestReason) + " - " + reason;
      continue;
    }
    read.IsKnown.push_back(!known.insert(KeyOf(bytes)).second);
    read.Sites.push_back(bytes);
    if (read.Sites.size() > most) return tooMany;
  }
  return read;
}

QString DecodeText(const QByteArray& bytes) {
  if (bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF"))
    return QStringDecoder(QStringConverter::Utf16)(bytes);
  if (bytes.isValidUtf8()) return QString::fromUtf8(bytes.startsWith("\xEF\xBB\xBF") ? bytes.mid(3) : bytes);
  return ToUnicode({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

}  // namespace requite
