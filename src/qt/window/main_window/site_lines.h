// SPDX-License-Identifier: MIT
// Reads sites from a text that the user pasted or dropped, a site in each line.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <string>
#include <vector>

#include "platform/list_view.h"

namespace requite {

/// What was found in a text of any origin and size.
struct SiteLines {
  std::vector<std::string> Sites;  ///< in the order of the text, in the program's code page
  std::vector<bool> IsKnown;       ///< of each site: in the list, or earlier in the text
  QStringList LeftOut;             ///< the other lines that are not empty, with the reason
  bool TooMany = false;  ///< more than `most` sites, or a text too large to look at; then the rest is empty

  [[nodiscard]] std::size_t Known() const;
};

/// A line gives the text before its first tab, without blanks around it, since rows copied from a list or a
/// spreadsheet have more fields after the address. Lines are left out when they are no text, are longer than
/// any address, or have letters that the program's files cannot hold. Sites that differ only in capitals, the
/// scheme or a "/" at the end are the same one. With `withoutScheme`, a line that is only a scheme is left
/// out too.
[[nodiscard]] SiteLines ReadSiteLines(const QString& text, const ListView& list, bool withoutScheme,
                                      std::size_t most);

/// Text in UTF-8, in UTF-16 with its mark, or else in the program's code page.
[[nodiscard]] QString DecodeText(const QByteArray& bytes);

}  // namespace requite
