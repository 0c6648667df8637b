// SPDX-License-Identifier: MIT
// A box to type words in that the rows of a list must hold.
#pragma once

#include <QLineEdit>
#include <QPointer>

#include "qt/window/lists/list_table.h"

namespace requite {

/// A row passes when each word is somewhere in its fields, ignoring letter case. Escape empties the box and
/// returns the keyboard focus to where it was; in an empty box the key also does what it does elsewhere.
/// Enter and Down move to the list. The box must outlive the last use of the table.
class FilterBox : public QLineEdit {
  Q_OBJECT

 public:
  FilterBox(const QString& name, const QString& prompt, ListTable& table, QWidget& view, QWidget* parent);

  /// Another condition that rows must meet, or null, and what it is about, such as "sites that link back".
  void SetCondition(RowFilter::Test condition, const QString& about);
  /// Remembers what has the keyboard focus, and takes it.
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
