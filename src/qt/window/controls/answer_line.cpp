// SPDX-License-Identifier: MIT
// Shows an answer, shortened in its middle where the bar is too narrow for it, and takes it away in time.
#include "qt/window/controls/answer_line.h"

#include <QAccessible>
#include <QStatusBar>
#include <chrono>

namespace requite {
namespace {

constexpr std::chrono::seconds kShown{10};
constexpr int kMargin = 6;

}  // namespace

AnswerLine::AnswerLine(QStatusBar& bar) : QLabel(&bar) {
  setObjectName("answerLine");
  setTextFormat(Qt::PlainText);
  setContentsMargins(kMargin, 0, kMargin, 0);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // a long path must not widen the window
  bar.addPermanentWidget(this, 5);
  hide();
  end_.setSingleShot(true);
  end_.setInterval(kShown);
  connect(&end_, &QTimer::timeout, this, &QWidget::hide);
}

void AnswerLine::Say(const QString& answer) {
  // Each typed letter of an option may have the same answer, which need not be said again.
  if (end_.isActive() && answer == answer_) return end_.start();
  answer_ = answer;
  setToolTip(answer.toHtmlEscaped());
  setAccessibleName(answer);
  show();
  ShowElided();
  end_.start();
  QAccessibleEvent told(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&told);
}

void AnswerLine::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  ShowElided();
}

void AnswerLine::ShowElided() {
  setText(fontMetrics().elidedText(answer_, Qt::ElideMiddle, width() - 2 * kMargin));
}

}  // namespace requite
