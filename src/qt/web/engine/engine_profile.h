// SPDX-License-Identifier: MIT
// The one browser profile of the program: what no page may do, whichever view shows it.
#pragma once

#include <QWebEngineProfile>

namespace requite {

/// Off the record, without scripts, plug-ins, storage or downloads. Made with the first view and deleted
/// after the last one, since a profile must outlive its pages.
class EngineProfile final : public QWebEngineProfile {
  Q_OBJECT

 public:
  /// The running profile, or a new one; each call wants a call of Release.
  [[nodiscard]] static EngineProfile& Acquire();
  /// After the caller's page is gone.
  void Release();

 private:
  explicit EngineProfile(QObject* parent);

  int users_ = 0;
};

}  // namespace requite
