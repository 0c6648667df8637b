// SPDX-License-Identifier: MIT
// The bar above the results that offers secure connections after a scan that needed them.
#pragma once

#include "qt/window/controls/notice_bar.h"
#include "qt/window/controls/user_events.h"
#include "shell/main_window/form1.h"

namespace requite {

class HttpsOnlyBar : public NoticeBar {
  Q_OBJECT

 public:
  /// All must outlive the bar.
  HttpsOnlyBar(Form1& form, const UserEvents& user, QWidget* parent);

  /// Shows the sites of the scan that has just ended.
  void Offer();
  /// Hides the bar when the results that it is about are gone.
  void Follow();

 private:
  Form1& form_;
};

}  // namespace requite
