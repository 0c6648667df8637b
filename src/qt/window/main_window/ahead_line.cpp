// SPDX-License-Identifier: MIT
// A timer refreshes the figures, because they change between the events of the scan.
#include "qt/window/main_window/ahead_line.h"

#include "qt/services/code_page.h"

namespace requite {
namespace {

constexpr int kIntervalMilliseconds = 250;

}  // namespace

AheadLine::AheadLine(const Form1& form, QWidget* parent) : QLabel(parent), form_(form) {
  setObjectName("aheadLine");
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
  hide();
  timer_.setInterval(kIntervalMilliseconds);
  connect(&timer_, &QTimer::timeout, this, &AheadLine::ShowWords);
}

void AheadLine::Follow() {
  const bool shows = form_.State.Scanning && form_.AheadWords;
  if (shows == timer_.isActive()) return;
  if (shows) {
    ShowWords();
    timer_.start();
  } else {
    timer_.stop();
  }
  setVisible(shows);
}

void AheadLine::ShowWords() { setText(ToUnicode(form_.AheadWords())); }

}  // namespace requite
