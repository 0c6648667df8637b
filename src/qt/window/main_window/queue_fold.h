// SPDX-License-Identifier: MIT
// The page queue, folded away while no scan runs.
#pragma once

#include <QWidget>

class QSplitter;
class QTableView;
class QToolButton;

namespace requite {

/// Holds the list of queued pages. A scan unfolds it and the end of the scan folds it; the button does
/// both at any time. Folded, the box around it is only as high as the rest of it needs, and the other part of
/// the splitter gets the room.
class QueueFold : public QWidget {
  Q_OBJECT

 public:
  /// `box` is the part of `splitter` that the queue is in.
  QueueFold(QTableView& queue, QWidget& box, QSplitter& splitter);

  /// The caller lays it out.
  [[nodiscard]] QToolButton* Button() const { return button_; }
  void Follow(bool scanning);

  /// Of the box with the queue unfolded, in pixels; 0 when it never was.
  [[nodiscard]] int Height() const;
  void SetHeight(int height) { height_ = height; }

 private:
  void Show(bool unfolded);

  QWidget& box_;
  QSplitter& splitter_;
  QToolButton* button_;
  int height_ = 0;
  bool scanning_ = false;
};

}  // namespace requite
