// SPDX-License-Identifier: MIT
// An entry box for one line that does not make one line of many.
#pragma once

#include <QClipboard>
#include <QLineEdit>
#include <functional>

namespace requite {

/// A pasted text of several lines, or one too long for any line, is handed on instead of being put into the
/// box. One line is pasted as everywhere, without a line end after it.
class EntryLine : public QLineEdit {
  Q_OBJECT

 public:
  using QLineEdit::QLineEdit;

  std::function<void(const QString& text)> OnLines;

 public slots:
  /// Has the name of the slot that the box's own menu calls.
  void paste();  // NOLINT(readability-identifier-naming)

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  bool TakesLines(QClipboard::Mode from);
};

}  // namespace requite
