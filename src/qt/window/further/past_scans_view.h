// SPDX-License-Identifier: MIT
// Draws the last scans of a site: a bar for each, as high as the links that were found.
#pragma once

#include <QWidget>

#include "qt/window/controls/view_refresh.h"
#include "shell/changes/past_scans.h"

namespace requite {

/// The colour of a bar is the verdict, a thin line across it the number of links expected. A tool tip gives
/// the figures of the bar under the mouse; the accessible description gives those of all.
class PastScansView final : public QWidget, public ControlView, public RefreshedView {
  Q_OBJECT

 public:
  /// The control and the refresh must outlive the view.
  PastScansView(PastScans& control, ViewRefresh& refresh, QWidget* parent);
  ~PastScansView() override;

  void Refresh(const Control&) override { Mark(); }
  void Apply() override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QRectF Plot() const;
  /// The part of the plot that belongs to a scan.
  [[nodiscard]] QRectF SlotOf(std::size_t scan) const;

  PastScans& control_;
};

}  // namespace requite
