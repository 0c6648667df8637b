// SPDX-License-Identifier: MIT
// The scheme under which the browser gets reports, since it may not have their files as they are.
#pragma once

#include <QUrl>
#include <QWebEngineUrlSchemeHandler>

class QWebEngineProfile;

namespace requite {

/// Answers with a report's file as it is now, through ReportForView. It shows at most 64 MiB of it, and says
/// at the end where more is left out.
class ReportScheme final : public QWebEngineUrlSchemeHandler {
  Q_OBJECT

 public:
  using QWebEngineUrlSchemeHandler::QWebEngineUrlSchemeHandler;

  /// Makes the scheme known to the browser; must run before the first profile is made.
  static void Register();
  void InstallIn(QWebEngineProfile& profile);

  /// The URL for the browser: that of the scheme for the file of a report, any other as it is.
  [[nodiscard]] static QUrl ForBrowser(const QUrl& url);
  /// The URL for the rest of the program, which knows reports by their files.
  [[nodiscard]] static QUrl ForProgram(const QUrl& url);

  void requestStarted(QWebEngineUrlRequestJob* job) override;
};

}  // namespace requite
