// SPDX-License-Identifier: MIT
// The library is found by its place beside the program, never by searching the system's folders.
#include "qt/web/web_module.h"

#include <unistd.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLibrary>
#include <QLoggingCategory>
#include <QPalette>

namespace requite {
namespace {

void SetUnlessSet(const char* name, const char* value) {
  if (!qEnvironmentVariableIsSet(name)) qputenv(name, value);
}

void AddEngineFlag(const char* flag) {
  constexpr const char* kVariable = "QTWEBENGINE_CHROMIUM_FLAGS";
  const QByteArray flags = qgetenv(kVariable);
  if (!flags.contains(flag)) qputenv(kVariable, (flags + ' ' + flag).trimmed());
}

/// On a dark desktop, pages that have a dark look are asked for it. The engine reads its flags once, so a
/// palette that changes later has no effect on pages.
void PreferDarkPagesOnDarkDesktop() {
  const QPalette palette = QGuiApplication::palette();
  if (palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness())
    AddEngineFlag("--force-dark-mode");
}

}  // namespace

void PrepareWebEngine() {
  // Without shared contexts the library crashes when it is loaded after the application object.
  QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
  // Pages are drawn by the processor: loading a graphics driver would double the start time and the memory.
  SetUnlessSet("QT_XCB_GL_INTEGRATION", "none");
  SetUnlessSet("QT_QUICK_BACKEND", "software");
  AddEngineFlag("--disable-gpu");
  // Without a driver the library would warn on the terminal.
  QLoggingCategory::setFilterRules("qt.webenginecontext=false");
  // The sandbox refuses to start for root.
  if (geteuid() == 0) SetUnlessSet("QTWEBENGINE_DISABLE_SANDBOX", "1");
}

QString WebModulePath() {
  const QString folder = QCoreApplication::applicationDirPath() + '/';
  for (const char* place : {REQUITE_WEB_MODULE, REQUITE_INSTALLED_WEB_MODULE}) {
    const QFileInfo file(folder + place);
    if (file.isFile()) return file.canonicalFilePath();
  }
  return {};
}

WebView* MakeViewOfModule(const QString& path, WebViewEvents& events, QWidget* parent) {
  if (path.isEmpty()) return nullptr;
  PreferDarkPagesOnDarkDesktop();
  QLibrary module(path);
  const auto make = reinterpret_cast<MakeWebView>(module.resolve(kMakeWebView));
  return make == nullptr ? nullptr : make(events, parent);
}

}  // namespace requite
