// SPDX-License-Identifier: MIT
// Counts the figures of the Reciprocal Link Report.
#include "results/report_figures.h"

#include <algorithm>

#include "platform/text.h"

namespace requite {

ReportStatus ReportStatusOf(std::string_view text) {
  if (text == status::kDirect) return ReportStatus::Direct;
  if (text == status::kIndirect) return ReportStatus::Indirect;
  if (text == status::kRedirect) return ReportStatus::Redirect;
  if (Contains(text, status::kNoneFound, Compare::Text)) return ReportStatus::NoneFound;
  return ReportStatus::Other;
}

ReportFigures CountFigures(const Project& project, const RecordList<ErrorEntry>& lstErr) {
  ReportFigures figures;
  figures.TotalMain = static_cast<std::int32_t>(project.List4.RowCount());
  for (int k = 0; k <= std::min(figures.TotalMain, project.ListCount()); ++k) {
    figures.TotalLinking += static_cast<std::int32_t>(project.List1(k).RowCount());
  }
  for (std::size_t row = 0; row < project.List3.RowCount(); ++row) {
    switch (ReportStatusOf(project.List3.At(row).Status)) {
      case ReportStatus::Direct: ++figures.TotalDirect; break;
      case ReportStatus::Indirect: ++figures.TotalIndirect; break;
      case ReportStatus::Redirect: ++figures.TotalRedirect; break;
      case ReportStatus::NoneFound: ++figures.TotalNonLinking; break;
      case ReportStatus::Other: break;
    }
  }
  figures.TotalReciprocal = figures.TotalDirect + figures.TotalIndirect + figures.TotalRedirect;
  figures.TotalErrors = static_cast<std::int32_t>(lstErr.RowCount());
  return figures;
}

}  // namespace requite
