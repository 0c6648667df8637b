// SPDX-License-Identifier: MIT
// Message boxes, file dialogs and the clipboard of the desktop.
#pragma once

#include "platform/services.h"

namespace requite {

class QtDialogs : public Dialogs {
 public:
  Answer Show(const MessageBox& box) override;
  [[nodiscard]] std::string AskOpenName(const FileDialog& dialog) override;
  [[nodiscard]] std::string AskSaveName(const FileDialog& dialog) override;
};

class QtClipboard : public Clipboard {
 public:
  void Clear() override;
  void SetText(const std::string& text) override;
};

}  // namespace requite
