// SPDX-License-Identifier: MIT
// Dialogs that are not shown before everything that was put off is done.
#pragma once

#include "platform/late_work.h"
#include "platform/services.h"

namespace requite {

/// A box may stay open for hours, and the user may look at the files meanwhile.
class DialogsAfterLateWork : public Dialogs {
 public:
  /// Both must outlive this object.
  DialogsAfterLateWork(Dialogs& dialogs, LateWork& late) : dialogs_(dialogs), late_(late) {}

  Answer Show(const MessageBox& box) override {
    const LateWork::Pause pause(late_);
    return dialogs_.Show(box);
  }
  [[nodiscard]] std::string AskOpenName(const FileDialog& dialog) override {
    const LateWork::Pause pause(late_);
    return dialogs_.AskOpenName(dialog);
  }
  [[nodiscard]] std::string AskSaveName(const FileDialog& dialog) override {
    const LateWork::Pause pause(late_);
    return dialogs_.AskSaveName(dialog);
  }

 private:
  Dialogs& dialogs_;
  LateWork& late_;
};

}  // namespace requite
