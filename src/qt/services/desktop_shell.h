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
  /// For help files: opened only where the desktop has a program for the type, because the opener would
  /// otherwise pass it to a browser, which cannot show it.
  void OpenDocument(const std::string& path) override;
  /// An address without a scheme is taken as a web address. Only http and https are opened: the address may
  /// come from a remote page.
  void OpenUrlOutside(const std::string& url) override;
  void OpenFile(const std::string& path) override;

  /// Runs with a path or an address that could not be opened: at once, or a moment after the call.
  std::function<void(const QString& what)> OnFailed;

 private:
  void Open(const QString& what);
  void Fail(const QString& what) const;

  QObject context_;  ///< disconnects openers that are still running
};

}  // namespace requite
