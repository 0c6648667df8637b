// SPDX-License-Identifier: MIT
// Opens documents, folders and addresses in the user's own programs.
#pragma once

#include <QObject>
#include <QString>
#include <functional>

#include "platform/services.h"

namespace requite {

/// Each call starts the desktop's opener and does not wait for it.
class DesktopShell : public Shell {
 public:
  /// For help files: it is opened only where the desktop names a program for that type, since the opener
  /// would hand it to a browser otherwise, which can do nothing with it.
  void OpenDocument(const std::string& path) override;
  /// What has no scheme is an address of the web. Addresses of other schemes than http and https are not
  /// opened: they may come from a remote page.
  void OpenUrlOutside(const std::string& url) override;
  void OpenFolder(const std::string& path) override;

  /// Runs with a path or an address that could not be opened: at once, or a moment after the call.
  std::function<void(const QString& what)> OnFailed;

 private:
  void Open(const QString& what);
  void Fail(const QString& what) const;

  QObject context_;  ///< ends the connections of openers that still run
};

}  // namespace requite
