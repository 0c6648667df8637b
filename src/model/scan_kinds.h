// SPDX-License-Identifier: MIT
// The kinds of scan, of skip and of what a scan counts.
#pragma once

#include <cstdint>

namespace requite {

/// The numbers are those of the entries of mnuScan and of the setting "ScanType".
enum class ScanType : std::int16_t { AllMainSites = 0, SelectedMainSite = 1, SelectedLinkingSite = 2 };

/// The numbers are those of the entries of mnuSkipPopup and of the setting "SkipType".
enum class SkipType : std::int16_t { LinkingSite = 0, MainSite = 1 };

/// What UpdateStats counts.
enum class Counted : std::int16_t {
  PageScanned = 0,
  PageFound = 1,
  LinkFound = 2,
  MainSite = 3,
  LinkingSite = 4,
};

}  // namespace requite
