// SPDX-License-Identifier: MIT
// Opens documents, folders and addresses in the user's own programs.
#pragma once

#include "platform/services.h"

namespace requite {

/// Each call starts the desktop's opener and does not wait for it; a failure says nothing.
class DesktopShell : public Shell {
 public:
  void OpenDocument(const std::string& path) override;
  /// Addresses of other schemes than http and https are not opened: they may come from a remote page.
  void OpenUrlOutside(const std::string& url) override;
  void OpenFolder(const std::string& path) override;
};

}  // namespace requite
