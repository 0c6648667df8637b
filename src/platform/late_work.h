// SPDX-License-Identifier: MIT
// What handlers of the network may put off for a moment because nothing can look at it yet.
#pragma once

#include <functional>
#include <utility>
#include <vector>

namespace requite {

/// A near server raises thousands of events a second, handled one after another in slices of a few
/// milliseconds. What a handler would write to disk for each of them, only to replace it at the next, may
/// wait for the end of the slice. It is done before any event but those of the same slice, before the user is
/// asked anything and before the program waits. So no event ever sees that something was put off; a kill
/// loses one slice of it.
class LateWork {
 public:
  LateWork() = default;
  LateWork(const LateWork&) = delete;
  LateWork& operator=(const LateWork&) = delete;

  /// While it lives, work may be put off. Whoever makes one calls Finish after it.
  class Slice {
   public:
    explicit Slice(LateWork& late) : late_(late), before_(std::exchange(late.mayWait_, true)) {}
    ~Slice() { late_.mayWait_ = before_; }
    Slice(const Slice&) = delete;
    Slice& operator=(const Slice&) = delete;

   private:
    LateWork& late_;
    bool before_;
  };

  /// Within a slice, other events are let run or the user is asked: first everything is finished, and while
  /// this lives nothing is put off.
  class Pause {
   public:
    explicit Pause(LateWork& late) : late_(late) {
      late.Finish();
      before_ = std::exchange(late.mayWait_, false);
    }
    ~Pause() { late_.mayWait_ = before_; }
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;

   private:
    LateWork& late_;
    bool before_ = false;
  };

  /// False when work must be done at once.
  [[nodiscard]] bool MayWait() const { return mayWait_; }

  /// `finish` does what its owner has put off; it lets no events run and is called very often, so it must
  /// cost nothing when there is nothing to do.
  void Add(const void* owner, std::function<void()> finish) { tasks_.emplace_back(owner, std::move(finish)); }
  void Remove(const void* owner) {
    std::erase_if(tasks_, [owner](const auto& task) { return task.first == owner; });
  }

  /// Does everything that was put off, each owner's in the order of Add. Does nothing within itself.
  void Finish() {
    if (std::exchange(finishing_, true)) return;
    for (const auto& [owner, finish] : tasks_) finish();
    finishing_ = false;
  }

 private:
  bool mayWait_ = false;
  bool finishing_ = false;
  std::vector<std::pair<const void*, std::function<void()>>> tasks_;
};

}  // namespace requite
