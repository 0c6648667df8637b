// SPDX-License-Identifier: MIT
// Descriptors on Qt's event loop.
#pragma once

#include <QEventLoop>
#include <vector>

#include "system/descriptor_loop.h"
#include "system/event_guard.h"

namespace requite {

class QtDescriptorLoop : public DescriptorLoop {
 public:
  /// The guard must outlive this object and its watches.
  explicit QtDescriptorLoop(const EventGuard& guard) : guard_(guard) {}

  [[nodiscard]] std::unique_ptr<DescriptorWatch> Watch(int descriptor,
                                                       std::function<void()> onReadable) override;
  [[nodiscard]] bool RunUntil(const bool& over) override;
  void Wake() override;
  [[nodiscard]] bool IsWaiting() const { return !waiting_.empty(); }

 private:
  const EventGuard& guard_;
  std::vector<QEventLoop*> waiting_;
};

}  // namespace requite
