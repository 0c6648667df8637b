// SPDX-License-Identifier: MIT
// A notifier for each descriptor and an event loop for each wait.
#include "qt/services/qt_descriptor_loop.h"

#include <QSocketNotifier>

#include "system/sliced_loop.h"

namespace requite {
namespace {

/// The exit code of a loop that is to check again. Any other one means that the program ends.
constexpr int kLookAgain = 0x4745;

class NotifierWatch : public DescriptorWatch {
 public:
  NotifierWatch(int descriptor, const EventGuard& guard, LateWork& late, std::function<void()> onReadable)
      : notifier_(descriptor, QSocketNotifier::Read) {
    QObject::connect(&notifier_, &QSocketNotifier::activated,
                     [&guard, &late, run = std::move(onReadable)] { RunAsSlice(guard, late, run); });
  }
  void SetOn(bool on) override { notifier_.setEnabled(on); }

 private:
  QSocketNotifier notifier_;
};

}  // namespace

std::unique_ptr<DescriptorWatch> QtDescriptorLoop::Watch(int descriptor, std::function<void()> onReadable) {
  return std::make_unique<NotifierWatch>(descriptor, guard_, late_, std::move(onReadable));
}

bool QtDescriptorLoop::RunUntil(const bool& over) {
  const LateWork::Pause pause(late_);
  QEventLoop loop;
  waiting_.push_back(&loop);
  while (!over && loop.exec() == kLookAgain) {
  }
  std::erase(waiting_, &loop);
  return over;
}

void QtDescriptorLoop::Wake() {
  for (QEventLoop* loop : waiting_) loop->exit(kLookAgain);
}

}  // namespace requite
