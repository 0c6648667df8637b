// SPDX-License-Identifier: MIT
// One page: which navigations are followed.
#pragma once

#include <QWebEnginePage>

#include "engine_profile.h"
#include "qt/web/web_view.h"

namespace requite {

class EnginePage final : public QWebEnginePage {
  Q_OBJECT

 public:
  EnginePage(EngineProfile& profile, WebViewEvents& events);

  /// The program asks for a page; a file is only shown when it was asked for here.
  void Ask(const QUrl& url);
  /// The page on show, in the program's form of its address: the last one that arrived, not one still
  /// loading.
  [[nodiscard]] QUrl Shown() const;
  /// Why the certificate of the last page was refused, or empty.
  [[nodiscard]] const QString& CertificateFault() const { return certificateFault_; }
  /// A download was refused during this load.
  [[nodiscard]] bool EndedInDownload() const { return endedInDownload_; }

 protected:
  bool acceptNavigationRequest(const QUrl& target, NavigationType type, bool isMainFrame) override;
  /// Forms get no local file.
  QStringList chooseFiles(FileSelectionMode, const QStringList&, const QStringList&) override { return {}; }
  void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int, const QString&) override {
  }

 private:
  /// Follows a link to `target`, also one meant for a new window.
  void OpenHere(const QUrl& target);
  [[nodiscard]] bool MayShowFile(const QUrl& url, NavigationType type);

  WebViewEvents& events_;
  QList<QUrl> asked_;
  bool userLeaves_ = false;  ///< a page that the user or the program asked for is loading
  QString certificateFault_;
  bool endedInDownload_ = false;
};

}  // namespace requite
