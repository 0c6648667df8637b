// SPDX-License-Identifier: MIT
// Makes the desktop's services, in the order in which they need each other.
#include "qt/window/desktop/desktop_services.h"

#include <QCoreApplication>
#include <QTimer>
#include <cstring>

#include "model/settings.h"
#include "model/visitor.h"
#include "qt/services/code_page.h"
#include "qt/window/desktop/opening_failed.h"

namespace requite {

DesktopServices::DesktopServices(const EventGuard& guard, const ConnectMap& map,
                                 const std::string& settingsPath)
    : guard_(guard),
      map_(map),
      file_(settingsPath),
      store_(file_),
      descriptors_(guard, events_.Late()),
      poller_(descriptors_, guard),
      resolver_(poller_),
      secure_(SecureRulesOf(store_)),
      connection_(poller_, resolver_, map, &secure_),
      timTimeout_(guard),
      timer1_(guard),
      internet_(descriptors_, map, AsciiHost) {
  file_.PutOffWith(events_.Late());
  shell_.OnFailed = ShowUnopened;
  file_.OnUnsaved = [this](const std::string& path, int error) {
    unsaved_ = "Your settings cannot be saved in " + FromUtf8(path) + ": " + std::strerror(error) +
               ".\r\nThey last until the program ends.";
    if (mayTell_) SayUnsaved();
  };
}

void DesktopServices::ForgetLastProject() { store_.Hold(std::string(setting::LastProject.Name), ""); }

void DesktopServices::TellUnsavedSettings() {
  mayTell_ = true;
  if (!unsaved_.empty()) SayUnsaved();
}

/// As an event of its own, because the write may happen in the middle of anything.
void DesktopServices::SayUnsaved() {
  QTimer::singleShot(0, QCoreApplication::instance(), [this] {
    guard_.Run([this] { dialogs_.Show({unsaved_, "Settings Not Saved", Buttons::Ok, BoxIcon::None}); });
  });
}

}  // namespace requite
