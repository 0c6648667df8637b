// SPDX-License-Identifier: MIT
// The scheme under which the browser gets reports, because it must not read their files unchanged.
#pragma once

#include <QUrl>
#include <QWebEngineUrlSchemeHandler>

class QWebEngineProfile;

namespace requite {

/// Answers with a report's current file, passed through ReportForView. It shows at most 64 MiB and says at
/// the end when the rest is left out.
class ReportScheme final : public QWebEngineUrlSchemeHandler {
  Q_OBJECT

 public:
  using QWebEngineUrlSchemeHandler::QWebEngineUrlSchemeHandler;

  /// Registers the scheme with the browser; must run before the first profile is made.
  static void Register();
  void InstallIn(QWebEngineProfile& profile);

  /// The URL for the browser: a report's file under the scheme, any other URL as it is.
  [[nodiscard]] static QUrl ForBrowser(const QUrl& url);
  /// The URL for the rest of the program: a report as its file.
  [[nodiscard]] static QUrl ForProgram(const QUrl& url);

  void requestStarted(QWebEngineUrlRequestJob* job) override;
};

}  // namespace requite
