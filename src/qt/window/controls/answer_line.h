// SPDX-License-Identifier: MIT
// The answers of a window to what the user did, at the right of its status bar.
#pragma once

#include <QLabel>
#include <QTimer>

class QStatusBar;

namespace requite {

/// Says what an action did, such as "3 sites added"; assistive technology is told too. An answer goes away
/// when the next one comes, or after ten seconds. The panels of the scan keep their own texts.
class AnswerLine : public QLabel {
  Q_OBJECT

 public:
  /// The bar owns the line.
  explicit AnswerLine(QStatusBar& bar);

  /// `answer` is plain text in one line; a path in it may be long.
  void Say(const QString& answer);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void ShowElided();

  QString answer_;
  QTimer end_;
};

}  // namespace requite
