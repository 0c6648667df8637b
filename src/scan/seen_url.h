// SPDX-License-Identifier: MIT
// Whether a URL was seen before on this site, and whether the results have a page.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "model/project.h"
#include "scan/scan_state.h"

namespace requite {

/// Where a URL was seen before.
enum class Seen {
  Nowhere,
  Pages,         ///< queued before on this site, which stays so until the next site
  Queue,         ///< in the queue, as the first page of a site is
  LinkingSites,  ///< a Linking Site of the current Main Site
};

/// Removes remains of schemes and outer blanks from `url`, in place, and sets `lowerUrl` to the result in
/// lower case. Failures are ignored.
[[nodiscard]] Seen WhereSeen(Project& project, PageQueue& queue, const ScanState& state, std::string& url,
                             std::string& lowerUrl);

/// Whether WhereSeen finds the URL anywhere.
[[nodiscard]] bool IsSeenUrl(Project& project, PageQueue& queue, const ScanState& state, std::string& url);

/// IsSeenUrl is false for every URL that has more characters than this without any "www.".
[[nodiscard]] std::size_t LongestSeenUrl(Project& project, PageQueue& queue, const ScanState& state);

/// Whether the "No." column of a result holds the text of the page. That column has only digits, so no real
/// page is ever found. The call is needed for what it does to its argument.
class RecordedPages {
 public:
  explicit RecordedPages(const RecordList<LinkResult>& results) : results_(results) {}

  /// Removes remains of schemes and outer blanks from `page`, in place.
  [[nodiscard]] bool IsPageRecorded(std::string& page);

 private:
  [[nodiscard]] bool NumbersAreDigits();

  const RecordList<LinkResult>& results_;
  std::string clean_;  // the last page from which nothing was removed: each of its links asks again
  std::uint64_t checkedVersion_ = 0;  // of the results; up to it, every "No." has only digits
  std::size_t checkedRows_ = 0;
};

}  // namespace requite
