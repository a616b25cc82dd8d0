#include "hosts/linux/fingerprint/UnlockWatcher.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>
#include <utility>

#include "hosts/linux/SessionBusAddress.h"
#include "hosts/linux/fingerprint/BusConnection.h"

namespace zephyl::linux_host {

namespace {

constexpr std::chrono::milliseconds kBusLimit{1000};
constexpr const char* kSession = "org.freedesktop.login1.Session";

}  // namespace

class UnlockWatcher::Signals : public QObject {
  Q_OBJECT

 public:
  Signals(Ended ended, const std::string& systemBus, const std::string& sessionBus)
      : ended_(std::move(ended)),
        system_(systemBus.empty() ? systemBusAddress() : systemBus, kBusLimit),
        session_(sessionBus.empty() ? sessionBusAddress().value_or("") : sessionBus, kBusLimit) {
    if (system_.isConnected()) {
      hearLogin(system_.bus());
      hearLoss(system_.bus());
    }
    if (session_.isConnected()) {
      hearLoss(session_.bus());
      for (const char* interface : {"org.freedesktop.ScreenSaver", "org.gnome.ScreenSaver"}) {
        session_.bus().connect(QString(), QString(), interface, "ActiveChanged", this,
                               SLOT(saverChanged(bool)));
      }
    }
  }

 private Q_SLOTS:
  void saverChanged(bool isOn) {
    if (isOn) {
      ended_(UnlockEnd::kLocked);
    }
  }

  void sleepChanged(bool isBefore) {
    if (isBefore) {
      ended_(UnlockEnd::kAsleep);
    }
  }

  void sessionTold(const QDBusMessage& answer) {
    if (answer.signature() == "o") {
      ourSession_ = answer.arguments().constFirst().value<QDBusObjectPath>().path();
    }
  }

  void busLost() { ended_(UnlockEnd::kBusLost); }

  void sessionLocked(const QDBusMessage& message) {
    if (isOurs(message)) {
      ended_(UnlockEnd::kLocked);
    }
  }

  // A hint whose value is not told may have been set.
  void sessionChanged(const QString& /*interface*/, const QVariantMap& changed,
                      const QStringList& invalidated, const QDBusMessage& message) {
    if (isOurs(message) &&
        (changed.value("LockedHint").toBool() || invalidated.contains("LockedHint"))) {
      ended_(UnlockEnd::kLocked);
    }
  }

 private:
  void hearLoss(QDBusConnection& bus) {
    bus.connect(QString(), "/org/freedesktop/DBus/Local", "org.freedesktop.DBus.Local",
                "Disconnected", this, SLOT(busLost()));
  }

  // Without the name of the sender, to know which the bus would have to be asked and waited for.
  void hearLogin(QDBusConnection& bus) {
    bus.connect(QString(), QString(), "org.freedesktop.login1.Manager", "PrepareForSleep", this,
                SLOT(sleepChanged(bool)));
    bus.connect(QString(), QString(), kSession, "Lock", this, SLOT(sessionLocked(QDBusMessage)));
    bus.connect(QString(), QString(), "org.freedesktop.DBus.Properties", "PropertiesChanged",
                QStringList{kSession}, "sa{sv}as", this,
                SLOT(sessionChanged(QString, QVariantMap, QStringList, QDBusMessage)));
    QDBusMessage call =
        QDBusMessage::createMethodCall("org.freedesktop.login1", "/org/freedesktop/login1",
                                       "org.freedesktop.login1.Manager", "GetSession");
    // The session of this process, or else of its user's display.
    call << QString("auto");
    // With a slot from the start, so that the answer is heard before any later signal.
    bus.callWithCallback(call, this, SLOT(sessionTold(QDBusMessage)));
  }

  // Every session is, as long as ours is not known.
  [[nodiscard]] bool isOurs(const QDBusMessage& message) const {
    return ourSession_.isEmpty() || message.path() == ourSession_;
  }

  Ended ended_;
  QString ourSession_;
  BusConnection system_;
  BusConnection session_;
};

UnlockWatcher::UnlockWatcher(Ended ended, const std::string& systemBus,
                             const std::string& sessionBus)
    : signals_(std::make_unique<Signals>(std::move(ended), systemBus, sessionBus)) {}

UnlockWatcher::~UnlockWatcher() = default;

}  // namespace zephyl::linux_host

#include "UnlockWatcher.moc"
