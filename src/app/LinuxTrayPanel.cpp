#include "app/LinuxTrayPanel.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>

namespace tarnwell::app {
namespace {

// A panel that takes longer to answer hangs.
constexpr int MostWait = 1000;  // milliseconds

}  // namespace

// Names are from the StatusNotifierItem specification of freedesktop.org.
bool IsTrayPanelSilent() {
  QDBusMessage question = QDBusMessage::createMethodCall(
      QStringLiteral("org.kde.StatusNotifierWatcher"), QStringLiteral("/StatusNotifierWatcher"),
      QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
  question << QStringLiteral("org.kde.StatusNotifierWatcher")
           << QStringLiteral("IsStatusNotifierHostRegistered");
  question.setAutoStartService(false);
  const QDBusError error(QDBusConnection::sessionBus().call(question, QDBus::Block, MostWait));
  return error.type() == QDBusError::NoReply || error.type() == QDBusError::Timeout;
}

}  // namespace tarnwell::app
