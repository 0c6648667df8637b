// SPDX-License-Identifier: MIT
// The words for the progress and the end of a scan.
#include "shell/main_window/scan_tally.h"

#include <algorithm>

namespace requite {

void ScanTally::Begin(Moment now) {
  counts_ = {};
  stopped_ = false;
  left_.Begin(now);
}

std::string ScanTally::Position(std::int32_t all) const {
  // A skip can lead the scan past the sites that its type says.
  const std::int32_t number = counts_.Sites + 1;
  return "Site " + std::to_string(counts_.Sites < all ? number : std::max(all, counts_.Sites)) + " of " +
         std::to_string(std::max(all, counts_.Sites));
}

std::vector<std::string> ScanTally::Progress(std::int32_t all, std::int32_t ahead, Moment now) {
  std::vector<std::string> words = {
      Position(all),
      std::to_string(counts_.LinkBack) + (counts_.LinkBack == 1 ? " links back" : " link back")};
  std::string left = left_.Words(counts_.Sites + ahead, all, now);
  if (!left.empty()) words.push_back(std::move(left));
  return words;
}

std::string ScanTally::Result(std::int32_t all) const {
  return (stopped_ ? "Stopped. " : "") + SummaryOf(counts_, all);
}

}  // namespace requite
