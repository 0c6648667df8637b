// SPDX-License-Identifier: MIT
// What a web view can do and reports: the boundary between the program and the library loaded for it.
#pragma once

#include <QString>
#include <QUrl>
#include <functional>

class QPrinter;
class QWidget;

namespace requite {

/// Is told what a web view does. No call may throw: the view calls from inside the toolkit.
class WebViewEvents {
 public:
  virtual ~WebViewEvents() = default;
  virtual void LoadStarted() = 0;
  /// 0 to 100.
  virtual void LoadProgress(int percent) = 0;
  virtual void LoadStopped() = 0;
  virtual void PageComplete(const QUrl& location) = 0;
  /// Nothing can be shown of the page; `reason` is a sentence for the user.
  virtual void PageFailed(const QUrl& location, const QString& reason) = 0;
  /// The process that drew the page ended; the view can be asked to reload.
  virtual void RendererEnded() = 0;
  /// The page asked for something that is refused (a download); the page on show stays.
  virtual void Refused(const QString& what) = 0;
  /// A link that the view leaves to the program: one to a host without a scheme, one for a new window.
  virtual void LinkChosen(const QString& address) = 0;
};

/// One view of pages. The widget's parent owns it.
class WebView {
 public:
  virtual ~WebView() = default;
  [[nodiscard]] virtual QWidget* Widget() = 0;
  /// An http, https or file URL, or about:blank; the only way to show a file.
  virtual void Load(const QUrl& url) = 0;
  /// No event follows when nothing is loading or a load has only just been asked for.
  virtual void Stop() = 0;
  virtual void Reload() = 0;
  /// False at the end of the history.
  [[nodiscard]] virtual bool Back() = 0;
  [[nodiscard]] virtual bool Forward() = 0;
  /// Prints the page on show, and calls `printed` when the printer is no longer in use. May be called again
  /// only after that.
  virtual void Print(QPrinter& printer, std::function<void()> printed) = 0;
};

/// The one function of the library, found under `kMakeWebView`. The events must outlive the view.
using MakeWebView = WebView* (*)(WebViewEvents& events, QWidget* parent);
inline constexpr const char* kMakeWebView = "RequiteMakeWebView";

/// A link of a local page without a scheme means a host, but the toolkit has made it a file beside the
/// page. Returns its address, or nothing for another link.
[[nodiscard]] inline QString HostMeantBy(const QUrl& link, const QUrl& localPage) {
  const QString folder = localPage.adjusted(QUrl::RemoveFilename | QUrl::RemoveQuery | QUrl::RemoveFragment)
                             .toString(QUrl::FullyEncoded);
  const QString address = link.toString(QUrl::FullyEncoded);
  if (!localPage.isLocalFile() || !address.startsWith(folder) || address.size() == folder.size()) return {};
  return "http://" + address.mid(folder.size());
}

}  // namespace requite
