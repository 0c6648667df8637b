// SPDX-License-Identifier: MIT
// Lays out the bar: the words, the offers, and a way to dismiss it.
#include "qt/window/controls/notice_bar.h"

#include <QAccessible>
#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

namespace requite {
namespace {

constexpr qsizetype kMostBars = 2;

/// Names come from projects of any origin: the tool tip must not take them for markup.
QString AsToolTip(const QString& names) {
  if (names.isEmpty()) return {};
  QStringList lines;
  for (const QString& each : names.split('\n')) lines += each.toHtmlEscaped();
  return "<p style='white-space:pre'>" + lines.join("<br>") + "</p>";
}

constexpr qreal kTint = 0.18;

QColor Mixed(const QColor& one, const QColor& other, qreal share) {
  const auto mix = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
  return {mix(one.red(), other.red()), mix(one.green(), other.green()), mix(one.blue(), other.blue())};
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
  setAutoFillBackground(true);
  Tint();
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

void NoticeBar::changeEvent(QEvent* event) {
  QFrame::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) Tint();
}

/// Tool tip colours would glare on many dark desktops.
void NoticeBar::Tint() {
  QPalette tinted = QGuiApplication::palette();
  tinted.setColor(QPalette::Window,
                  Mixed(tinted.color(QPalette::Window), tinted.color(QPalette::Highlight), kTint));
  if (tinted != palette()) setPalette(tinted);  // this is a change of the palette too
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

void NoticeBar::MakeRoom() {
  static unsigned count = 0;
  said_ = ++count;
  QList<NoticeBar*> others = parentWidget()->findChildren<NoticeBar*>(Qt::FindDirectChildrenOnly);
  others.removeIf([this](const NoticeBar* each) { return each == this || each->isHidden(); });
  std::sort(others.begin(), others.end(), [](const auto* a, const auto* b) { return a->said_ > b->said_; });
  for (qsizetype i = kMostBars - 1; i < others.size(); ++i) others[i]->hide();
}

}  // namespace requite
