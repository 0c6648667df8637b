// SPDX-License-Identifier: MIT
// All services of a real desktop in one place, for the programs that open the real window.
#pragma once

#include <string>

#include "platform/dialogs_after_late_work.h"
#include "platform/run_settings.h"
#include "qt/services/desktop_shell.h"
#include "qt/services/qt_descriptor_loop.h"
#include "qt/services/qt_event_loop.h"
#include "qt/services/qt_timer.h"
#include "qt/services/sound_process.h"
#include "qt/services/system_clock.h"
#include "qt/window/desktop/qt_dialogs.h"
#include "runahead/run_ahead_services.h"
#include "system/curl_internet.h"
#include "system/name_resolver.h"
#include "system/page_connection.h"
#include "system/settings_file.h"

namespace requite {

/// Needs a QApplication during its whole life.
class DesktopServices {
 public:
  /// Guard and map must outlive the services. The settings file is made when it is missing.
  DesktopServices(const EventGuard& guard, const ConnectMap& map, const std::string& settingsPath);
  DesktopServices(const DesktopServices&) = delete;
  DesktopServices& operator=(const DesktopServices&) = delete;

  /// Call it when the main window is on screen: from then on the user is told, once, that settings cannot be
  /// saved. A failure before this call is reported by it.
  void TellUnsavedSettings();

  /// Call it before the main window is made: in this run there is no last project, for the start as well as
  /// for auto-save, until one is saved or opened. The stored setting stays.
  void ForgetLastProject();

  /// What further page connections are made with.
  [[nodiscard]] RunAheadServices::Parts Parts() {
    return {[this] { return std::make_unique<QtTimer>(guard_); },
            descriptors_,
            poller_,
            resolver_,
            map_,
            secure_};
  }
  /// True while some code of the program has let events run and waits until they are done.
  [[nodiscard]] bool EventsAreNested() const { return events_.IsRunning() || descriptors_.IsWaiting(); }

 private:
  void SayUnsaved();

  const EventGuard& guard_;
  const ConnectMap& map_;
  std::string unsaved_;  ///< the message about the settings, if any
  bool mayTell_ = false;
  SettingsFile file_;
  RunSettings store_;
  QtEventLoop events_;
  QtDescriptorLoop descriptors_;
  SocketPoller poller_;
  NameResolver resolver_;
  SecureHosts secure_;
  PageConnection connection_;
  QtTimer timTimeout_;
  QtTimer timer1_;
  CurlInternet internet_;
  QtDialogs dialogs_;
  DialogsAfterLateWork dialogsOfProgram_{dialogs_, events_.Late()};
  QtClipboard clipboard_;
  SoundProcess sounds_;
  DesktopShell shell_;
  SystemClock clock_;

 public:
  Services All{events_,           connection_, timTimeout_, timer1_, internet_, store_,
               dialogsOfProgram_, clipboard_,  sounds_,     shell_,  clock_};
};

}  // namespace requite
