// SPDX-License-Identifier: MIT
// The progress of the whole scan in words, beside the bar that shows the progress of the page.
#pragma once

#include <QLabel>
#include <QTimer>

#include "shell/main_window/form1.h"

namespace requite {

/// Takes no room while no scan runs.
class ScanLine : public QLabel {
  Q_OBJECT

 public:
  /// The form must outlive the line.
  ScanLine(Form1& form, QWidget* parent);

  /// To be called when a scan may have begun or ended.
  void Follow();

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void ShowWords();
  void ShowElided();

  Form1& form_;
  QString words_;
  QTimer timer_;
};

}  // namespace requite
