// SPDX-License-Identifier: MIT
// Everything goes through the desktop's one opener.
#include "shell/qt/desktop_shell.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

#include "platform/text.h"
#include "shell/qt/code_page.h"

namespace requite {
namespace {

void Open(const QString& what) { QProcess::startDetached(QStringLiteral("xdg-open"), {what}); }

/// An absolute path cannot be taken for an option.
void OpenPath(const std::string& path) {
  Open(QFileInfo(QFile::decodeName(path.c_str())).absoluteFilePath());
}

}  // namespace

void DesktopShell::OpenDocument(const std::string& path) { OpenPath(path); }

void DesktopShell::OpenFolder(const std::string& path) { OpenPath(path); }

void DesktopShell::OpenUrlOutside(const std::string& url) {
  if (!StartsWith(url, "http://", Compare::Text) && !StartsWith(url, "https://", Compare::Text)) return;
  Open(QString::fromLatin1(QUrl(ToUnicode(url)).toEncoded()));
}

}  // namespace requite
