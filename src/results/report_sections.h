// SPDX-License-Identifier: MIT
// The part of the Reciprocal Link Report that lists each Linking Site with its results.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "model/project.h"
#include "platform/services.h"
#include "platform/spooled_text.h"

namespace requite {

/// Joins the results to the Linking Sites by bare host, through an index, so that the cost does not grow
/// with their product. The output is that of a loop over all pairs, in the same order.
///
/// Events run meanwhile, so the lists may change. Rows are kept by number and every bound is read again
/// after each yield: the loop continues after the row it had reached, in the lists as they are then, and
/// ends where they end. A sort meanwhile can make a row show twice or not at all; an emptied project ends
/// the sections. The index is built again when the results have changed.
class ReportSections {
 public:
  ReportSections(const Project& project, EventLoop& eventLoop) : project_(project), eventLoop_(eventLoop) {}

  void WriteTo(SpooledText& page);

 private:
  void WriteMainSite(SpooledText& page, int k);
  void WriteLinkingSite(SpooledText& page, const std::string& host);
  /// The first result row at or after `from` whose site has this bare host, or -1.
  [[nodiscard]] std::int64_t NextRowOf(const std::string& host, std::size_t from);
  void BuildIndex();

  const Project& project_;
  EventLoop& eventLoop_;
  std::unordered_map<std::string, std::vector<std::size_t>> rowsOfHost_;
  std::uint64_t indexedVersion_ = 0;
  bool indexed_ = false;
};

}  // namespace requite
