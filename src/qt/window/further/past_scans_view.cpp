// SPDX-License-Identifier: MIT
// The geometry, the colours and the words of the bars.
#include "qt/window/further/past_scans_view.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "qt/services/code_page.h"
#include "qt/window/controls/shown_text.h"
#include "qt/window/look/glyphs.h"

namespace requite {
namespace {

constexpr qreal kMargin = 6;
constexpr qreal kWidestBar = 26;
constexpr int kMostBars = 30;
constexpr qreal kGap = 3;
constexpr qreal kStub = 3;  // of a scan without links, so that its colour is seen
constexpr int kPlotHeight = 56;

QString WordsOf(const PastResult& result) {
  QString date = QString::fromStdString(result.Finished).left(16).replace('T', ' ');
  return PastScansView::tr("%1 UTC: %2 found, %3 expected (%4)")
      .arg(date)
      .arg(result.Found)
      .arg(result.Expected)
      .arg(QString::fromUtf8(WordOf(result.State).data(), static_cast<int>(WordOf(result.State).size())));
}

QColor ColourOf(SiteState state) {
  switch (state) {
    case SiteState::Ok: return ShadeOf(Tone::Blue);
    case SiteState::Redirect: return ShadeOf(Tone::Green);
    case SiteState::Fewer:
    case SiteState::None: return ShadeOf(Tone::Red);
    case SiteState::Unreachable: break;
  }
  return ShadeOf(Tone::Faint);
}

std::int64_t Highest(const std::vector<PastResult>& results) {
  std::int64_t highest = 1;
  for (const PastResult& each : results) highest = std::max({highest, each.Found, each.Expected});
  return highest;
}

}  // namespace

PastScansView::PastScansView(PastScans& control, ViewRefresh& refresh, QWidget* parent)
    : QWidget(parent), RefreshedView(refresh), control_(control) {
  setObjectName(QString::fromStdString(control.Name()));
  setFixedHeight(fontMetrics().height() + kPlotHeight + 3 * static_cast<int>(kMargin));
  setAccessibleName(tr("Links found by the last scans of the selected site"));
  control_.SetView(this);
  Apply();
}

PastScansView::~PastScansView() { control_.SetView(nullptr); }

void PastScansView::Apply() {
  QStringList words;
  for (const PastResult& each : control_.Results()) words << WordsOf(each);
  setAccessibleDescription(words.join("; "));
  update();
}

QRectF PastScansView::Plot() const {
  const qreal top = 2 * kMargin + fontMetrics().height();
  return {kMargin, top, width() - 2 * kMargin, height() - top - kMargin};
}

QRectF PastScansView::SlotOf(std::size_t scan) const {
  const QRectF plot = Plot();
  const qreal slot = std::min(kWidestBar, plot.width() / kMostBars);
  return {plot.left() + slot * static_cast<qreal>(scan), plot.top(), slot, plot.height()};
}

bool PastScansView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto& help = static_cast<const QHelpEvent&>(*event);
  const std::vector<PastResult>& results = control_.Results();
  for (std::size_t i = 0; i < results.size(); ++i) {
    const QRectF slot = SlotOf(i);
    if (!slot.contains(help.pos())) continue;
    QToolTip::showText(help.globalPos(), WordsOf(results[i]), this, slot.toAlignedRect());
    return true;
  }
  QToolTip::hideText();
  return true;
}

void PastScansView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().base());
  const std::vector<PastResult>& results = control_.Results();
  const QRectF title(kMargin, kMargin, width() - 2 * kMargin, fontMetrics().height());
  if (results.empty()) {
    painter.setPen(ShadeOf(Tone::Faint));
    painter.drawText(rect(), Qt::AlignCenter, tr("Select a site to see what its last scans found."));
    return;
  }
  painter.setPen(palette().color(QPalette::Text));
  const QString site = OneLine(control_.Site());
  painter.drawText(
      title, Qt::AlignLeft | Qt::AlignVCenter,
      results.size() == 1
          ? tr("%1: links found by the only scan").arg(site)
          : tr("%1: links found by the last %2 scans").arg(site, QString::number(results.size())));
  const auto highest = static_cast<qreal>(Highest(results));
  for (std::size_t i = 0; i < results.size(); ++i) {
    const PastResult& result = results[i];
    const QRectF slot = SlotOf(i);
    const auto heightOf = [&](std::int64_t links) {
      return slot.height() * static_cast<qreal>(links) / highest;
    };
    const qreal bar = std::max(kStub, heightOf(result.Found));
    painter.fillRect(QRectF(slot.left(), slot.bottom() - bar, slot.width() - kGap, bar),
                     ColourOf(result.State));
    painter.setPen(QPen(palette().color(QPalette::Text), 1));
    const qreal expected = slot.bottom() - heightOf(result.Expected);
    painter.drawLine(QPointF(slot.left(), expected), QPointF(slot.right(), expected));
  }
}

}  // namespace requite
