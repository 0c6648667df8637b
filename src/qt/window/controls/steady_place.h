// SPDX-License-Identifier: MIT
// The place of a label whose text changes many times a second.
#pragma once

#include <QLabel>
#include <QWidget>

namespace requite {

/// Each new text of a label makes its window lay out and paint far more than the label. In this place only a
/// text that needs more room than it has does so.
class SteadyPlace : public QWidget {
 public:
  /// Takes the label, and its size policy.
  explicit SteadyPlace(QLabel* label, QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override { return label_->sizeHint(); }
  [[nodiscard]] QSize minimumSizeHint() const override { return label_->minimumSizeHint(); }

 protected:
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QLabel* label_;
};

}  // namespace requite
