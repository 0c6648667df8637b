// SPDX-License-Identifier: MIT
// The ways to begin, in the results area while the program has nothing to show.
#pragma once

#include <QFrame>

#include "qt/window/controls/user_events.h"
#include "shell/main_window/form1.h"

class QLineEdit;
class QTableView;

namespace requite {

/// Covers the list of results while there are neither sites nor results: three buttons, each of which leads
/// to a first project.
class FirstSteps : public QFrame {
  Q_OBJECT

 public:
  /// All must outlive the widget; `results` becomes its parent.
  FirstSteps(Form1& form, const UserEvents& user, QTableView& results);

  /// Shows or hides itself.
  void Follow();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void TypeSite();
  void ImportLinkPage();
  void OpenSample();
  [[nodiscard]] std::string SamplePath() const;

  Form1& form_;
  const UserEvents& user_;
};

}  // namespace requite
