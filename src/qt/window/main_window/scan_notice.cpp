// SPDX-License-Identifier: MIT
// Turns states of a scan into messages for the desktop.
#include "qt/window/main_window/scan_notice.h"

#include <QCoreApplication>
#include <algorithm>
#include <utility>

namespace requite {

void ScanNotice::See(const ScanSight& sight) {
  const int percent = sight.Scanning ? std::clamp(sight.Percent, 0, 100) : DesktopBus::kNoProgress;
  if (std::exchange(percent_, percent) != percent) bus_.ShowProgress(percent);
  const bool ended = std::exchange(scanning_, sight.Scanning) && !sight.Scanning;
  if (!ended || sight.InFront) return;
  QString words = QCoreApplication::translate("ScanNotice", "%1 links found on %2 pages.")
                      .arg(sight.LinksFound)
                      .arg(sight.PagesScanned);
  if (!sight.Changes.isEmpty()) {
    words = QCoreApplication::translate("ScanNotice", "Since the last scan: %1.").arg(sight.Changes) + "\n" +
            words;
  }
  bus_.Notify(QCoreApplication::translate("ScanNotice", "The scan has ended"), words);
}

}  // namespace requite
