// SPDX-License-Identifier: MIT
// Brings what the logic changed to the screen: some thirty times a second, however often it changes, and
// after each of the user's events.
#pragma once

#include <QTimer>
#include <functional>
#include <vector>

namespace requite {

class ViewRefresh;

/// A view that re-reads its control when the next refresh comes.
class RefreshedView {
 public:
  explicit RefreshedView(ViewRefresh& refresh) : refresh_(refresh) {}
  virtual ~RefreshedView();
  RefreshedView(const RefreshedView&) = delete;
  RefreshedView& operator=(const RefreshedView&) = delete;

  /// Asks for a refresh; cheap when one is due already.
  void Mark();
  /// Makes the widget show the control as it is now, touching it only where it differs.
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

  /// Applies every marked view now; does nothing when none is.
  void ApplyMarked();

  /// Runs after each refresh, for what is shown of several controls together.
  std::function<void()> OnApplied;

 private:
  friend class RefreshedView;

  void ApplyAndPaint();

  QTimer timer_;
  int pause_ = kIntervalMilliseconds;  ///< until the next refresh; grows with the time that one takes
  std::vector<RefreshedView*> marked_;
};

}  // namespace requite
