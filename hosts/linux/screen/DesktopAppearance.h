// What the user set for the whole desktop: dark or light, less motion. Asked of the desktop's
// portal on the message bus, and followed. Main thread.

#pragma once

#include <QDBusMessage>
#include <QDBusVariant>
#include <QObject>
#include <QString>
#include <QVariant>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "hosts/linux/bus/SessionBus.h"

class QDBusPendingCallWatcher;

namespace zephyl::linux_host {

class DesktopAppearance : public QObject {
  Q_OBJECT

 public:
  // What the desktop does not tell is not there.
  struct Settings {
    std::optional<bool> dark;
    std::optional<bool> reducedMotion;
    friend bool operator==(const Settings&, const Settings&) = default;
  };

  // Asks and waits for half a second at most; a later answer is told as a change. `changed` runs on
  // the main thread, never inside this call. `address` is that of a message bus.
  DesktopAppearance(std::string address, std::function<void(const Settings&)> changed);

  [[nodiscard]] Settings settings() const;

 public slots:
  // Of the portal: another value. `namespaceName` is one of those that were asked for, or any.
  void settingChanged(const QString& namespaceName, const QString& key, const QDBusVariant& value);

 private:
  using Name = std::pair<QString, QString>;

  void ask();
  void askAgain();
  void take(const QDBusMessage& answer);
  void tellOf(const Settings& before);
  [[nodiscard]] std::optional<QVariant> value(const Name& name) const;

  SessionBus bus_;
  const std::function<void(const Settings&)> changed_;
  std::map<Name, QVariant> values_;
};

}  // namespace zephyl::linux_host
