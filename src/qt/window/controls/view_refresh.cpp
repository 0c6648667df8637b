// SPDX-License-Identifier: MIT
// One timer for all views.
#include "qt/window/controls/view_refresh.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <algorithm>
#include <utility>

namespace requite {
namespace {

/// The pause after a refresh is this many times what it and its painting took, and at most this long. The
/// scan gets the rest: the figure keeps it at 95 % of its speed, counting what the display's server does too.
constexpr qint64 kRestFactor = 36;
constexpr qint64 kLongestPauseMilliseconds = 500;

}  // namespace

RefreshedView::~RefreshedView() {
  if (marked_)
    std::replace(refresh_.marked_.begin(), refresh_.marked_.end(), this,
                 static_cast<RefreshedView*>(nullptr));
}

void RefreshedView::Mark() {
  if (marked_) return;
  marked_ = true;
  refresh_.marked_.push_back(this);
  if (!refresh_.timer_.isActive()) refresh_.timer_.start(refresh_.pause_);
}

ViewRefresh::ViewRefresh() {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, [this] { ApplyAndPaint(); });
}

void ViewRefresh::ApplyMarked() {
  if (marked_.empty()) return;
  // Views are found by number, because applying a view may mark or destroy others.
  for (std::size_t i = 0; i < marked_.size(); ++i) {
    RefreshedView* const view = std::exchange(marked_[i], nullptr);
    if (view == nullptr) continue;
    view->marked_ = false;
    view->Apply();
  }
  marked_.clear();
  if (OnApplied) OnApplied();
}

void ViewRefresh::ApplyAndPaint() {
  QElapsedTimer clock;
  clock.start();
  ApplyMarked();
  // Laid out and painted at once, so that nothing is painted twice and the time counts: on a slow display
  // there are fewer refreshes instead of a slower scan.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateRequest);
  const qint64 pause = clock.nsecsElapsed() * kRestFactor / 1'000'000;
  pause_ = static_cast<int>(std::clamp<qint64>(pause, kIntervalMilliseconds, kLongestPauseMilliseconds));
}

}  // namespace requite
