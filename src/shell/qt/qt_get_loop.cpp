// SPDX-License-Identifier: MIT
// A notifier for the descriptor, and an event loop of its own for each wait.
#include "shell/qt/qt_get_loop.h"

namespace requite {
namespace {

/// How a loop ends that is only to look again. One that ends otherwise was ended with the program.
constexpr int kLookAgain = 0x4745;

}  // namespace

void QtGetLoop::Watch(int descriptor, std::function<void()> onReadable) {
  notifier_ = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated,
                   [this, run = std::move(onReadable)] { guard_.Run(run); });
}

bool QtGetLoop::RunUntil(const bool& over) {
  QEventLoop loop;
  waiting_.push_back(&loop);
  while (!over && loop.exec() == kLookAgain) {
  }
  std::erase(waiting_, &loop);
  return over;
}

void QtGetLoop::Wake() {
  for (QEventLoop* loop : waiting_) loop->exit(kLookAgain);
}

}  // namespace requite
