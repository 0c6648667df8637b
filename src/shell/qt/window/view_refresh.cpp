// SPDX-License-Identifier: MIT
// One timer for all views.
#include "shell/qt/window/view_refresh.h"

#include <algorithm>
#include <utility>

namespace requite {
namespace {

constexpr int kIntervalMilliseconds = 33;

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
  if (!refresh_.timer_.isActive()) refresh_.timer_.start();
}

ViewRefresh::ViewRefresh() {
  timer_.setSingleShot(true);
  timer_.setInterval(kIntervalMilliseconds);
  QObject::connect(&timer_, &QTimer::timeout, [this] { ApplyAll(); });
}

void ViewRefresh::ApplyAll() {
  // Views are found by number: an applied view may mark others, or end them.
  for (std::size_t i = 0; i < marked_.size(); ++i) {
    RefreshedView* const view = std::exchange(marked_[i], nullptr);
    if (view == nullptr) continue;
    view->marked_ = false;
    view->Apply();
  }
  marked_.clear();
}

}  // namespace requite
