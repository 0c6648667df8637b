// SPDX-License-Identifier: MIT
// Descriptors on Qt's event loop.
#pragma once

#include <QEventLoop>
#include <vector>

#include "platform/late_work.h"
#include "system/descriptor_loop.h"
#include "system/event_guard.h"

namespace requite {

class QtDescriptorLoop : public DescriptorLoop {
 public:
  /// Both must outlive this object and its watches. Each event of a descriptor is a slice of its own.
  QtDescriptorLoop(const EventGuard& guard, LateWork& late) : guard_(guard), late_(late) {}

  [[nodiscard]] std::unique_ptr<DescriptorWatch> Watch(int descriptor,
                                                       std::function<void()> onReadable) override;
  [[nodiscard]] bool RunUntil(const bool& over) override;
  void Wake() override;
  [[nodiscard]] bool IsWaiting() const { return !waiting_.empty(); }

 private:
  const EventGuard& guard_;
  LateWork& late_;
  std::vector<QEventLoop*> waiting_;
};

}  // namespace requite
