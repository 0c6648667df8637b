// SPDX-License-Identifier: MIT
// A parent without a layout: the label's wish for a new layout ends here.
#include "qt/window/controls/steady_place.h"

#include <QEvent>

namespace requite {

SteadyPlace::SteadyPlace(QLabel* label, QWidget* parent) : QWidget(parent), label_(label) {
  setSizePolicy(label->sizePolicy());
  label->setParent(this);
}

bool SteadyPlace::event(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest) {
    const QSize wanted = label_->minimumSizeHint();
    const bool anyWidth = sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;
    if ((!anyWidth && wanted.width() > width()) || wanted.height() > height()) updateGeometry();
  }
  return QWidget::event(event);
}

void SteadyPlace::resizeEvent(QResizeEvent*) { label_->setGeometry(rect()); }

}  // namespace requite
