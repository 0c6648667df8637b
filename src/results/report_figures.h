// SPDX-License-Identifier: MIT
// The figures of the Reciprocal Link Report.
#pragma once

#include <cstdint>
#include <string_view>

#include "model/project.h"

namespace requite {

/// How the report counts and shows the status of a result row.
enum class ReportStatus { Direct, Indirect, Redirect, NoneFound, Other };

/// Link statuses are compared with case. "None Found" counts anywhere in the status, in any case. A
/// domain link or a shortfall is Other, which the report does not count.
[[nodiscard]] ReportStatus ReportStatusOf(std::string_view status);

struct ReportFigures {
  std::int32_t TotalMain = 0;
  std::int32_t TotalLinking = 0;
  std::int32_t TotalReciprocal = 0;
  std::int32_t TotalDirect = 0;
  std::int32_t TotalIndirect = 0;
  std::int32_t TotalRedirect = 0;
  std::int32_t TotalNonLinking = 0;
  std::int32_t TotalErrors = 0;
};

[[nodiscard]] ReportFigures CountFigures(const Project& project, const RecordList<ErrorEntry>& lstErr);

}  // namespace requite
