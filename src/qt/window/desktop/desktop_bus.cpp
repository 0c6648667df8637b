// SPDX-License-Identifier: MIT
// Messages to the notification service and to task bars; no answer is waited for.
#include "qt/window/desktop/desktop_bus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QFile>
#include <QVariantMap>

#include "qt/services/code_page.h"
#include "shell/product.h"

namespace requite {
namespace {

constexpr const char* kDesktopFile = "requite";
constexpr int kTheServicesOwnTime = -1;
constexpr uint kNewNotification = 0;

constexpr const char* kAddressVariable = "DBUS_SESSION_BUS_ADDRESS";
/// An address that keeps the library from looking for a bus.
constexpr const char* kNoBus = "disabled:";

bool HasBus() {
  if (qEnvironmentVariableIsSet(kAddressVariable)) return qgetenv(kAddressVariable) != kNoBus;
  return QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus");
}

void Send(const QDBusMessage& message) {
  if (!HasBus()) return;
  const QDBusConnection bus = QDBusConnection::sessionBus();
  if (bus.isConnected()) bus.send(message);
}

}  // namespace

void StayOffMissingBus() {
  if (!HasBus()) qputenv(kAddressVariable, kNoBus);
}

void SessionBus::Notify(const QString& summary, const QString& body) {
  QDBusMessage message =
      QDBusMessage::createMethodCall("org.freedesktop.Notifications", "/org/freedesktop/Notifications",
                                     "org.freedesktop.Notifications", "Notify");
  message.setArguments({ToUnicode(product::kName), kNewNotification, QString(kDesktopFile), summary, body,
                        QStringList(), QVariantMap{{"desktop-entry", QString(kDesktopFile)}},
                        kTheServicesOwnTime});
  Send(message);
}

void SessionBus::ShowProgress(int percent) {
  QDBusMessage message =
      QDBusMessage::createSignal("/example/requite/Requite", "com.canonical.Unity.LauncherEntry", "Update");
  const bool visible = percent != kNoProgress;
  message.setArguments(
      {QString("application://%1.desktop").arg(kDesktopFile),
       QVariantMap{{"progress", visible ? percent / 100.0 : 0.0}, {"progress-visible", visible}}});
  Send(message);
}

}  // namespace requite
