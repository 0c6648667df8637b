// SPDX-License-Identifier: MIT
// Folds and unfolds, and moves the splitter to match.
#include "qt/window/main_window/queue_fold.h"

#include <QHeaderView>
#include <QSplitter>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>
#include <utility>

namespace requite {
namespace {

constexpr int kFirstRows = 4;  // in sight the first time

}  // namespace

QueueFold::QueueFold(QTableView& queue, QWidget& box, QSplitter& splitter)
    : QWidget(&box), box_(box), splitter_(splitter), button_(new QToolButton(&box)) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(&queue);
  button_->setObjectName("showQueue");
  button_->setText(tr("Queued pages"));
  button_->setToolTip(tr("Show or hide the pages that are queued"));
  button_->setCheckable(true);
  button_->setAutoRaise(true);
  button_->setFocusPolicy(Qt::StrongFocus);
  button_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  connect(button_, &QToolButton::toggled, this, &QueueFold::Show);
  button_->setArrowType(Qt::RightArrow);
  hide();
  box_.setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
}

void QueueFold::Follow(bool scanning) {
  if (std::exchange(scanning_, scanning) != scanning) button_->setChecked(scanning);
}

int QueueFold::Height() const { return button_->isChecked() ? box_.height() : height_; }

void QueueFold::Show(bool unfolded) {
  if (!unfolded) height_ = box_.height();
  setVisible(unfolded);
  button_->setArrowType(unfolded ? Qt::DownArrow : Qt::RightArrow);
  box_.setSizePolicy(QSizePolicy::Preferred, unfolded ? QSizePolicy::Preferred : QSizePolicy::Maximum);
  if (!unfolded) return;
  const auto* const queue = findChild<QTableView*>();
  const int rows = box_.height() + kFirstRows * queue->verticalHeader()->defaultSectionSize();
  const int wanted = height_ > 0 ? height_ : rows;
  splitter_.setSizes({splitter_.height() - splitter_.handleWidth() - wanted, wanted});
}

}  // namespace requite
