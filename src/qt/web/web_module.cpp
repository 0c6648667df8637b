// SPDX-License-Identifier: MIT
// The library is found by its place beside the program, never by searching the system's folders.
#include "qt/web/web_module.h"

#include <unistd.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibrary>
#include <QLoggingCategory>

namespace requite {
namespace {

void SetUnlessSet(const char* name, const char* value) {
  if (!qEnvironmentVariableIsSet(name)) qputenv(name, value);
}

}  // namespace

void PrepareWebEngine() {
  // Without shared contexts the library crashes when it is loaded after the application object.
  QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
  // Pages are drawn by the processor: loading a graphics driver would double the start time and the memory.
  SetUnlessSet("QT_XCB_GL_INTEGRATION", "none");
  SetUnlessSet("QT_QUICK_BACKEND", "software");
  QByteArray flags = qgetenv("QTWEBENGINE_CHROMIUM_FLAGS");
  if (!flags.contains("--disable-gpu"))
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS", (flags + " --disable-gpu").trimmed());
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
  QLibrary module(path);
  const auto make = reinterpret_cast<MakeWebView>(module.resolve(kMakeWebView));
  return make == nullptr ? nullptr : make(events, parent);
}

}  // namespace requite
