// SPDX-License-Identifier: MIT
// An event loop and a guard for tests over real sockets and timers: with an application object for the
// window's loop, and without for the console's.
#pragma once

#include <QCoreApplication>
#include <QTimer>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "qt/services/qt_descriptor_loop.h"
#include "qt/services/qt_event_loop.h"
#include "qt/services/qt_timer.h"
#include "system/event_guard.h"
#include "system/poll_loop.h"

namespace requite::test {

struct LoopRig {
  int Count = 1;
  char Name[8] = "requite";
  char* Arguments[2] = {Name, nullptr};
  QCoreApplication Application{Count, Arguments};
  QtEventLoop Loop;
  std::vector<int> Failures;
  EventGuard Guard{[this](const RuntimeFailure& failure) { Failures.push_back(failure.Number); }};
  QtDescriptorLoop Descriptors{Guard, Loop.Late()};

  /// Lets events run until the condition holds; false after a time that only a fault can take.
  bool Until(const std::function<bool()>& condition) {
    return Loop.RunUntil(condition, std::chrono::seconds(10));
  }

  /// Runs an action as an event of the loop, after some milliseconds.
  static void After(int milliseconds, std::function<void()> action) {
    QTimer::singleShot(milliseconds, std::move(action));
  }
  [[nodiscard]] std::unique_ptr<Timer> MakeTimer() const { return std::make_unique<QtTimer>(Guard); }
  /// Tells every loop to end, as the end of the program does.
  static void EndProgram() { QCoreApplication::exit(); }

  /// Lets everything that is on its way over loopback arrive, and shows that nothing more comes.
  void Settle() { Loop.RunFor(std::chrono::milliseconds(30)); }
};

struct PollRig {
  PollLoop Loop;
  std::vector<int> Failures;
  EventGuard Guard{[this](const RuntimeFailure& failure) { Failures.push_back(failure.Number); }};
  PollDescriptorLoop Descriptors{Loop, Guard};

  bool Until(const std::function<bool()>& condition) {
    return Loop.RunUntil(condition, std::chrono::seconds(10));
  }
  void After(int milliseconds, std::function<void()> action) {
    Loop.StartTimer(std::chrono::milliseconds(milliseconds), false, std::move(action));
  }
  [[nodiscard]] std::unique_ptr<Timer> MakeTimer() { return std::make_unique<PollTimer>(Loop, Guard); }
  void Settle() { Loop.RunFor(std::chrono::milliseconds(30)); }
};

}  // namespace requite::test
