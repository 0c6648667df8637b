// SPDX-License-Identifier: MIT
// The part of the Reciprocal Link Report that shows each Linking Site with its results.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "model/project.h"
#include "platform/services.h"
#include "platform/spooled_text.h"

namespace requite {

/// Joins the results to the Linking Sites by bare host, through an index, so that the cost does not
/// grow with their product. It writes what a walk over all pairs would write, in the same order.
///
/// Events run while it works, so the lists may change under it. Rows are held by number, and every
/// bound is read again after each yield: the walk goes on behind the row that it had reached in the
/// lists as they then are, and ends where they end. A sort in between can so show a row twice or not
/// at all; an emptied project ends the sections. The index is made anew when the results have changed.
class ReportSections {
 public:
  ReportSections(const Project& project, EventLoop& eventLoop) : project_(project), eventLoop_(eventLoop) {}

  void WriteTo(SpooledText& page);

 private:
  void WriteMainSite(SpooledText& page, int k);
  void WriteLinkingSite(SpooledText& page, const std::string& host);
  /// The first result row at or behind `from` whose site has this bare host, or -1.
  [[nodiscard]] std::int64_t NextRowOf(const std::string& host, std::size_t from);
  void BuildIndex();

  const Project& project_;
  EventLoop& eventLoop_;
  std::unordered_map<std::string, std::vector<std::size_t>> rowsOfHost_;
  std::uint64_t indexedVersion_ = 0;
  bool indexed_ = false;
};

}  // namespace requite
