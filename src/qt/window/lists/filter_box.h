// SPDX-License-Identifier: MIT
// A box to type words in that the rows of a list must hold.
#pragma once

#include <QLineEdit>
#include <QPointer>

#include "qt/window/lists/list_table.h"

namespace requite {

/// A row passes when each word is somewhere in its fields, ignoring letter case. Escape empties the box and
/// gives the keyboard back; in an empty box it only does the latter, and stays whatever it is elsewhere.
/// Enter and Down lead to the list. The box must outlive the last use of the table.
class FilterBox : public QLineEdit {
  Q_OBJECT

 public:
  FilterBox(const QString& name, const QString& prompt, ListTable& table, QWidget& view, QWidget* parent);

  /// Another condition that rows must meet, or null, and what it is about, such as "sites that link back".
  void SetCondition(RowFilter::Test condition, const QString& about);
  /// Remembers who has the keyboard, and takes it.
  void Take();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void FilterRows();
  void GiveBack();

  ListTable& table_;
  QWidget& view_;
  RowFilter::Test condition_;
  QString about_;
  QPointer<QWidget> before_;
};

}  // namespace requite
