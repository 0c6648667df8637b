// SPDX-License-Identifier: MIT
// What the user can do with the built page besides saving it: look at it, copy it.
#pragma once

#include <QWidget>

#include "qt/window/controls/answer_line.h"
#include "qt/window/controls/user_events.h"
#include "shell/main_window/form1.h"

class QLabel;

namespace requite {

/// Two buttons, and a hint while the page still has sentences that the program put there as samples.
class PageTools : public QWidget {
  Q_OBJECT

 public:
  /// All must outlive the widget.
  PageTools(Form1& form, const UserEvents& user, AnswerLine& answers, QWidget* parent);

  /// Shows or hides the hint.
  void Follow();

 private:
  void Preview();
  void CopyHtml();

  Form1& form_;
  AnswerLine& answers_;
  QLabel* hint_;
};

}  // namespace requite
