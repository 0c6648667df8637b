// SPDX-License-Identifier: MIT
// Shows what the logic changed on screen: at most thirty times a second, and after each of the user's
// events.
#pragma once

#include <QTimer>
#include <functional>
#include <vector>

namespace requite {

class ViewRefresh;

/// A view that reads its control again at the next refresh.
class RefreshedView {
 public:
  explicit RefreshedView(ViewRefresh& refresh) : refresh_(refresh) {}
  virtual ~RefreshedView();
  RefreshedView(const RefreshedView&) = delete;
  RefreshedView& operator=(const RefreshedView&) = delete;

  /// Asks for a refresh; cheap when one is already due.
  void Mark();
  /// Makes the widget show the control's current state, touching it only where it differs.
  virtual void Apply() = 0;

 private:
  friend class ViewRefresh;

  ViewRefresh& refresh_;
  bool marked_ = false;
};

class ViewRefresh {
 public:
  static constexpr int kIntervalMilliseconds = 33;  ///< the shortest

  ViewRefresh();

  /// Applies every marked view now.
  void ApplyMarked();

  /// Runs after each refresh, for anything that depends on several controls.
  std::function<void()> OnApplied;

 private:
  friend class RefreshedView;

  void ApplyAndPaint();

  QTimer timer_;
  int pause_ = kIntervalMilliseconds;  ///< until the next refresh; grows with the time that a refresh takes
  std::vector<RefreshedView*> marked_;
};

}  // namespace requite
