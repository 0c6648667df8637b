// SPDX-License-Identifier: MIT
// Tells the desktop about a scan, where there is one that listens.
#pragma once

#include <QString>

namespace requite {

/// Both calls return at once and never fail: without a listener nothing happens.
class DesktopBus {
 public:
  static constexpr int kNoProgress = -1;

  virtual ~DesktopBus() = default;
  /// A notification; `body` is plain text made by the program.
  virtual void Notify(const QString& summary, const QString& body) = 0;
  /// The progress on the program's button in the task bar, 0 to 100 or kNoProgress.
  virtual void ShowProgress(int percent) = 0;
};

/// Keeps the toolkit from looking for a message bus where the session has none: its library would start one
/// and the window would wait for that. Call it before the application object is made; programs that the
/// window starts inherit the setting.
void StayOffMissingBus();

/// Uses the session's message bus, but does not start one.
class SessionBus final : public DesktopBus {
 public:
  void Notify(const QString& summary, const QString& body) override;
  void ShowProgress(int percent) override;
};

}  // namespace requite
