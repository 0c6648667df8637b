// SPDX-License-Identifier: MIT
// What the user can do with the report on show besides saving it: open it elsewhere, print it.
#pragma once

#include <QWidget>

#include "qt/web/web_view_holder.h"
#include "qt/window/controls/answer_line.h"
#include "qt/window/controls/user_events.h"
#include "shell/main_window/form1.h"

class QPushButton;

namespace requite {

/// A row of two buttons, which are enabled while a report is on show.
class ReportTools : public QWidget {
  Q_OBJECT

 public:
  /// All must outlive the row.
  ReportTools(Form1& form, WebViewHolder& view, const UserEvents& user, AnswerLine& answers, QWidget* parent);

  /// The buttons follow what is on show.
  void Follow();

 private:
  void OpenInBrowser();

  Form1& form_;
  WebViewHolder& view_;
  AnswerLine& answers_;
  QPushButton* open_;
  QPushButton* print_;
};

}  // namespace requite
