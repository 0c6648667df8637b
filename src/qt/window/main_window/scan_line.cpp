// SPDX-License-Identifier: MIT
// A timer refreshes the words, because the time left changes without events of the scan.
#include "qt/window/main_window/scan_line.h"

#include "qt/services/code_page.h"
#include "scan/scan_share.h"

namespace requite {
namespace {

constexpr int kIntervalMilliseconds = 250;

}  // namespace

ScanLine::ScanLine(Form1& form, QWidget* parent) : QLabel(parent), form_(form) {
  setObjectName("scanLine");
  setTextFormat(Qt::PlainText);
  hide();
  timer_.setInterval(kIntervalMilliseconds);
  connect(&timer_, &QTimer::timeout, this, &ScanLine::ShowWords);
}

void ScanLine::Follow() {
  if (form_.State.Scanning == timer_.isActive()) return;
  if (form_.State.Scanning) {
    ShowWords();
    timer_.start();
  } else {
    timer_.stop();
  }
  setVisible(form_.State.Scanning);
}

void ScanLine::ShowWords() {
  QStringList parts;
  const auto all = static_cast<std::int32_t>(SitesToScan(form_.Sites, form_.State));
  const auto ahead = static_cast<std::int32_t>(form_.SitesAhead ? form_.SitesAhead() : 0);
  for (const std::string& each : form_.Tally.Progress(all, ahead, std::chrono::steady_clock::now())) {
    parts << ToUnicode(each);
  }
  const QString words = parts.join(QString::fromUtf8(" \u00B7 "));
  if (words == words_) return;
  words_ = words;
  setToolTip(words);
  setAccessibleName(words);
  updateGeometry();
  ShowElided();
}

QSize ScanLine::sizeHint() const {
  return {fontMetrics().horizontalAdvance(words_) + 2, QLabel::sizeHint().height()};
}

/// The window must not become wider for it.
QSize ScanLine::minimumSizeHint() const { return {0, QLabel::minimumSizeHint().height()}; }

void ScanLine::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  ShowElided();
}

void ScanLine::ShowElided() { setText(fontMetrics().elidedText(words_, Qt::ElideRight, width())); }

}  // namespace requite
