// SPDX-License-Identifier: MIT
// The bar above the results that sums up a scan.
#pragma once

#include "qt/window/controls/notice_bar.h"
#include "qt/window/controls/user_events.h"
#include "shell/main_window/form1.h"

namespace requite {

class ResultBar : public NoticeBar {
  Q_OBJECT

 public:
  /// All must outlive the bar.
  ResultBar(Form1& form, const UserEvents& user, QWidget* parent);

  /// Tells of the scan that has just ended.
  void Tell();

  /// Shows the results of the sites that do not link back.
  std::function<void()> OnShowMissing;

 private:
  Form1& form_;
  QPushButton* missing_ = nullptr;
};

}  // namespace requite
