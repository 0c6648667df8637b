// SPDX-License-Identifier: MIT
// GETs on Qt's event loop.
#pragma once

#include <QEventLoop>
#include <QSocketNotifier>
#include <memory>
#include <vector>

#include "shell/qt/event_guard.h"
#include "shell/qt/get_loop.h"

namespace requite {

class QtGetLoop : public GetLoop {
 public:
  /// The guard must outlive this object.
  explicit QtGetLoop(const EventGuard& guard) : guard_(guard) {}

  void Watch(int descriptor, std::function<void()> onReadable) override;
  void Unwatch() override { notifier_.reset(); }
  [[nodiscard]] bool RunUntil(const bool& over) override;
  void Wake() override;

 private:
  const EventGuard& guard_;
  std::unique_ptr<QSocketNotifier> notifier_;
  std::vector<QEventLoop*> waiting_;
};

}  // namespace requite
