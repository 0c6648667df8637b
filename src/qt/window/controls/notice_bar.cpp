// SPDX-License-Identifier: MIT
// Lays out the bar: the words, the offers, and a way to dismiss it.
#include "qt/window/controls/notice_bar.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <algorithm>

namespace requite {
namespace {

constexpr qsizetype kMostBars = 2;
constexpr float kTint = 0.18F;

/// Names come from projects of any origin: the tool tip must not take them for markup.
QString AsToolTip(const QString& names) {
  if (names.isEmpty()) return {};
  QStringList lines;
  for (const QString& each : names.split('\n')) lines += each.toHtmlEscaped();
  return "<p style='white-space:pre'>" + lines.join("<br>") + "</p>";
}

}  // namespace

NoticeBar::NoticeBar(const QString& name, const QString& dismissText, const QString& dismissToolTip,
                     QWidget* parent)
    : QFrame(parent),
      layout_(new QHBoxLayout(this)),
      words_(new QLabel(this)),
      dismiss_(new QPushButton(dismissText, this)) {
  setObjectName(name);
  setFrameShape(QFrame::StyledPanel);
  layout_->setContentsMargins(9, 3, 6, 3);
  words_->setObjectName(name + "Words");
  words_->setTextFormat(Qt::PlainText);
  words_->setWordWrap(true);
  layout_->addWidget(words_, 1);
  dismiss_->setObjectName(name + "Dismiss");
  dismiss_->setToolTip(dismissToolTip);
  layout_->addWidget(dismiss_);
  connect(dismiss_, &QPushButton::clicked, this, &QWidget::hide);
  hide();
}

QPushButton& NoticeBar::Offer(const QString& name, const QString& text, std::function<void()> then) {
  auto* const button = new QPushButton(text, this);
  button->setObjectName(name);
  layout_->insertWidget(layout_->count() - 1, button);
  connect(button, &QPushButton::clicked, this, std::move(then));
  setTabOrder(button, dismiss_);
  return *button;
}

void NoticeBar::Say(const QString& words, const QString& toolTipLines) {
  words_->setText(words);
  setToolTip(AsToolTip(toolTipLines));
  setAccessibleName(words);
  MakeRoom();
  show();
  QAccessibleEvent told(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&told);
}

/// A tint of the selection colour is seen in bright palettes and in dark ones, and the words keep their
/// contrast.
void NoticeBar::paintEvent(QPaintEvent* event) {
  QColor tint = palette().color(QPalette::Active, QPalette::Highlight);
  tint.setAlphaF(kTint);
  QPainter(this).fillRect(rect(), tint);
  QFrame::paintEvent(event);
}

void NoticeBar::MakeRoom() {
  static unsigned count = 0;
  said_ = ++count;
  QList<NoticeBar*> others = parentWidget()->findChildren<NoticeBar*>(Qt::FindDirectChildrenOnly);
  others.removeIf([this](const NoticeBar* each) { return each == this || each->isHidden(); });
  std::sort(others.begin(), others.end(), [](const auto* a, const auto* b) { return a->said_ > b->said_; });
  for (qsizetype i = kMostBars - 1; i < others.size(); ++i) others[i]->hide();
}

}  // namespace requite
