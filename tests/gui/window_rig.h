// SPDX-License-Identifier: MIT
// The real main window over fake services: what the tests of the windows share.
#pragma once

#include <QTest>
#include <memory>

#include "qt/window/main_window/main_window.h"
#include "support/fakes.h"

namespace requite::test {

/// A base of test classes; widgets are found by their controls' names.
class WindowRig {
 protected:
  /// `prepare` works on the main window without its widgets, once it has started.
  template <class Prepare>
  void Start(Prepare&& prepare) {
    folder_ = std::make_unique<TemporaryFolder>();
    WriteFile(folder_->File("filetypes.txt"), ".htm\r\n");
    services_ = std::make_unique<FakeServices>();
    form_ = std::make_unique<Form1>(services_->All, folder_->Folder);
    form_->Start();
    prepare(*form_);
    window_ = std::make_unique<MainWindow>(*form_, guard_);
    window_->show();
  }
  void End() {
    window_.reset();
    form_.reset();
    services_.reset();
    folder_.reset();
  }

  template <class Kind>
  static Kind* Part(QWidget* window, const char* name) {
    auto* const found = window->findChild<Kind*>(name);
    if (found == nullptr) qFatal("no widget %s", name);
    return found;
  }

  const EventGuard guard_{[](const RuntimeFailure& failure) { qFatal("%s", failure.what()); }};
  std::unique_ptr<TemporaryFolder> folder_;
  std::unique_ptr<FakeServices> services_;
  std::unique_ptr<Form1> form_;
  std::unique_ptr<MainWindow> window_;
};

}  // namespace requite::test
