// SPDX-License-Identifier: MIT
// The counters of one scan and of all scans, and the labels that show them.
#pragma once

#include <cstdint>
#include <span>

#include "model/scan_kinds.h"
#include "model/settings.h"
#include "platform/controls.h"

namespace requite {

/// Counts what a scan does. The history counters are kept in the settings store, each written soon after
/// it was raised.
class Statistics {
 public:
  static constexpr std::size_t kLabels = 7;

  /// `lblStats` are the labels in their order on screen. They must outlive this object.
  Statistics(Settings settings, std::span<TextBox, kLabels> lblStats)
      : settings_(settings), lblStats_(lblStats) {}

  std::int32_t PagesScanned = 0;
  std::int32_t PagesFound = 0;
  std::int32_t LinksFound = 0;
  std::int32_t HistoryPagesScanned = 0;
  std::int32_t HistoryLinksFound = 0;
  std::int32_t LinkingSitesScanned = 0;
  std::int32_t MainSitesScanned = 0;

  /// Reads the history counters from the settings; the labels are not touched.
  /// Throws TypeMismatch or Overflow for a stored text that is no 32-bit number.
  void ReadHistory();

  /// Raises a counter by 1 and shows all figures. Throws Overflow when the counter is full.
  void UpdateStats(Counted kind);
  /// Writes the seven counters into the labels.
  void RefreshStats();

  /// At the start of a scan. The labels keep their old figures until the next UpdateStats.
  void ResetPageCounters();  ///< PagesScanned, PagesFound, LinksFound
  void ResetSiteCounters();  ///< MainSitesScanned, LinkingSitesScanned

 private:
  void Raise(Counted kind);

  Settings settings_;
  std::span<TextBox, kLabels> lblStats_;
};

}  // namespace requite
