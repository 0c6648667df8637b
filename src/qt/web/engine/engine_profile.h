// SPDX-License-Identifier: MIT
// The program's one browser profile: what no page may do, in any view.
#pragma once

#include <QWebEngineProfile>

namespace requite {

/// Off the record, without scripts, plug-ins, storage or downloads. Made with the first view and deleted
/// after the last one, since a profile must outlive its pages.
class EngineProfile final : public QWebEngineProfile {
  Q_OBJECT

 public:
  /// The current profile, or a new one; each call needs a call of Release.
  [[nodiscard]] static EngineProfile& Acquire();
  /// Call it when the caller's page has been destroyed.
  void Release();

 private:
  explicit EngineProfile(QObject* parent);

  int users_ = 0;
};

}  // namespace requite
