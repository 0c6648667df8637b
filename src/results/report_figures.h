// SPDX-License-Identifier: MIT
// The figures of the Reciprocal Link Report.
#pragma once

#include <cstdint>
#include <string_view>

#include "model/project.h"

namespace requite {

/// How the report counts and shows the status of a result row.
enum class ReportStatus { Direct, Indirect, Redirect, NoneFound, Other };

/// The words of a link are compared with case; "None Found" counts anywhere in the status, in any case.
/// A link to the domain alone and a shortfall are Other: the report counts them nowhere.
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
