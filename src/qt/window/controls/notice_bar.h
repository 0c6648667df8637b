// SPDX-License-Identifier: MIT
// A bar that says something about the window below it, and may offer something to do about it.
#pragma once

#include <QFrame>
#include <functional>

class QHBoxLayout;
class QLabel;
class QPushButton;

namespace requite {

/// Takes no room while it is hidden, as it is at first. It never takes the keyboard focus when it appears. Of
/// the bars of one widget two at most are on show: a third takes the place of the one that has been there
/// longest.
class NoticeBar : public QFrame {
  Q_OBJECT

 public:
  /// The bar, its words and its last button are named after `name`: "name", "nameWords", "nameDismiss".
  NoticeBar(const QString& name, const QString& dismissText, const QString& dismissToolTip, QWidget* parent);

  /// Adds a button in front of the one that dismisses. `then` runs as a plain slot; the bar stays.
  QPushButton& Offer(const QString& name, const QString& text, std::function<void()> then);

  /// Shows the bar. The words are plain text; the tool tip may be of any origin too, a name in each line.
  void Say(const QString& words, const QString& toolTipLines = {});

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void MakeRoom();

  QHBoxLayout* layout_;
  QLabel* words_;
  QPushButton* dismiss_;
  unsigned said_ = 0;  ///< rises with each bar that appears
};

}  // namespace requite
