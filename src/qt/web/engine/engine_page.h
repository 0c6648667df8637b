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

  /// The program asks for a page; a file that was not asked for so is never shown.
  void Ask(const QUrl& url);
  /// The page on show, as the program knows it: the last one that came, not one on its way.
  [[nodiscard]] QUrl Shown() const;
  /// Why the certificate of the last page was refused, or empty.
  [[nodiscard]] const QString& CertificateFault() const { return certificateFault_; }
  /// The last refusal of a download came during this load.
  [[nodiscard]] bool EndedInDownload() const { return endedInDownload_; }

 protected:
  bool acceptNavigationRequest(const QUrl& target, NavigationType type, bool isMainFrame) override;
  /// Forms get no local file.
  QStringList chooseFiles(FileSelectionMode, const QStringList&, const QStringList&) override { return {}; }
  void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int, const QString&) override {
  }

 private:
  /// A link to `target`, in this window or meant for a new one.
  void OpenHere(const QUrl& target);
  [[nodiscard]] bool MayShowFile(const QUrl& url, NavigationType type);

  WebViewEvents& events_;
  QList<QUrl> asked_;
  bool userLeaves_ = false;  ///< what the user or the program asked for is on its way
  QString certificateFault_;
  bool endedInDownload_ = false;
};

}  // namespace requite
