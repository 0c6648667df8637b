// SPDX-License-Identifier: MIT
// The drawing beside the report: how many sites link back, and how many links each site has.
#pragma once

#include <QScrollArea>

#include "results/links_by_site.h"
#include "shell/main_window/form1.h"

namespace requite {

/// Draws the results of the last scan; hidden while there are no results. Only the window has it: the
/// report's file stays as it is.
class ReportChart : public QScrollArea {
  Q_OBJECT

 public:
  /// The form must outlive the chart.
  ReportChart(Form1& form, QWidget* parent);

  /// Reads the results again after a scan, and hides the chart without any.
  void Follow();

 private:
  class Drawing;

  Form1& form_;
  Drawing* drawing_;
  std::size_t rows_ = 0;    ///< of the results on show
  std::int32_t sites_ = 0;  ///< that were counted
};

}  // namespace requite
