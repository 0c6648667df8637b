// SPDX-License-Identifier: MIT
// A line that says how many sites are read ahead of a scan.
#pragma once

#include <QLabel>
#include <QTimer>

#include "shell/main_window/form1.h"

namespace requite {

/// Takes no room except in a scan of several sites at a time.
class AheadLine : public QLabel {
  Q_OBJECT

 public:
  /// The form must outlive the line.
  AheadLine(const Form1& form, QWidget* parent);

  /// To be called when a scan may have begun or ended.
  void Follow();

 private:
  void ShowWords();

  const Form1& form_;
  QTimer timer_;
};

}  // namespace requite
