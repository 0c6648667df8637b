// SPDX-License-Identifier: MIT
// Whether a URL was met before on this site, and whether a page stands in the results.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "model/project.h"
#include "scan/scan_state.h"

namespace requite {

/// Whether the URL is a Linking Site of the Main Site in scan, waits in the queue, or was queued
/// before on this site. Takes scheme leftovers and outer blanks off `url`, in place. Failures are
/// passed over.
[[nodiscard]] bool IsSeenUrl(Project& project, PageQueue& queue, const ScanState& state, std::string& url);

/// IsSeenUrl is false for every URL that has more characters than this when all "www." are out of it.
[[nodiscard]] std::size_t LongestSeenUrl(Project& project, PageQueue& queue, const ScanState& state);

/// Whether the "No." column of a result holds the page's text. That column has digits only, so no
/// real page is ever recorded; the question is asked for its effect on its argument.
class RecordedPages {
 public:
  explicit RecordedPages(const RecordList<LinkResult>& results) : results_(results) {}

  /// Takes scheme leftovers and outer blanks off `page`, in place.
  [[nodiscard]] bool IsPageRecorded(std::string& page);

 private:
  [[nodiscard]] bool NumbersAreDigits();

  const RecordList<LinkResult>& results_;
  std::uint64_t checkedVersion_ = 0;  // of the results, up to which every "No." is known to be digits only
  std::size_t checkedRows_ = 0;
};

}  // namespace requite
