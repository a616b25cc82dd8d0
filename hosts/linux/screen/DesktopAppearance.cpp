#include "hosts/linux/screen/DesktopAppearance.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QMap>
#include <QStringList>

namespace zephyl::linux_host {

namespace {

constexpr char kService[] = "org.freedesktop.portal.Desktop";
constexpr char kPath[] = "/org/freedesktop/portal/desktop";
constexpr char kInterface[] = "org.freedesktop.portal.Settings";
constexpr char kAppearance[] = "org.freedesktop.appearance";
constexpr char kColorScheme[] = "color-scheme";
constexpr char kReducedMotion[] = "reduced-motion";
// Older portals tell of motion only by this setting of one desktop.
constexpr char kDesktop[] = "org.gnome.desktop.interface";
constexpr char kAnimations[] = "enable-animations";

constexpr int kPatience = 500;        // milliseconds, while the program starts
constexpr int kLatePatience = 10000;  // and once it runs

QDBusMessage question() {
  QDBusMessage message = QDBusMessage::createMethodCall(kService, kPath, kInterface, "ReadAll");
  message.setArguments({QStringList{kAppearance, kDesktop}});
  return message;
}

bool isTold(const QString& space, const QString& key) {
  return (space == kAppearance && (key == kColorScheme || key == kReducedMotion)) ||
         (space == kDesktop && key == kAnimations);
}

}  // namespace

DesktopAppearance::DesktopAppearance(std::string address,
                                     std::function<void(const Settings&)> changed)
    : bus_(std::move(address)), changed_(std::move(changed)) {
  if (bus_.isConnected()) {
    ask();
  }
}

void DesktopAppearance::ask() {
  QDBusConnection connection = bus_.connection();
  connection.connect(kService, kPath, kInterface, "SettingChanged", this,
                     SLOT(settingChanged(QString, QString, QDBusVariant)));
  const QDBusMessage answer = connection.call(question(), QDBus::Block, kPatience);
  if (answer.type() == QDBusMessage::ReplyMessage) {
    take(answer);
  } else if (answer.errorName() == "org.freedesktop.DBus.Error.NoReply" ||
             answer.errorName() == "org.freedesktop.DBus.Error.Timeout") {
    askAgain();
  }
}

void DesktopAppearance::askAgain() {
  auto* const watcher =
      new QDBusPendingCallWatcher(bus_.connection().asyncCall(question(), kLatePatience), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
    watcher->deleteLater();
    const Settings before = settings();
    take(watcher->reply());
    tellOf(before);
  });
}

void DesktopAppearance::take(const QDBusMessage& answer) {
  if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != "a{sa{sv}}") {
    return;
  }
  const auto spaces =
      qdbus_cast<QMap<QString, QVariantMap>>(answer.arguments().at(0).value<QDBusArgument>());
  for (auto space = spaces.begin(); space != spaces.end(); ++space) {
    for (auto entry = space->begin(); entry != space->end(); ++entry) {
      if (isTold(space.key(), entry.key())) {
        values_[{space.key(), entry.key()}] = entry.value();
      }
    }
  }
}

void DesktopAppearance::settingChanged(const QString& namespaceName, const QString& key,
                                       const QDBusVariant& value) {
  if (!isTold(namespaceName, key)) {
    return;
  }
  const Settings before = settings();
  values_[{namespaceName, key}] = value.variant();
  tellOf(before);
}

void DesktopAppearance::tellOf(const Settings& before) {
  const Settings now = settings();
  if (now != before) {
    changed_(now);
  }
}

std::optional<QVariant> DesktopAppearance::value(const Name& name) const {
  const auto found = values_.find(name);
  return found != values_.end() ? std::optional(found->second) : std::nullopt;
}

DesktopAppearance::Settings DesktopAppearance::settings() const {
  constexpr unsigned kPreferDark = 1;
  constexpr unsigned kPreferLight = 2;
  Settings settings;
  if (const auto scheme = value({kAppearance, kColorScheme})) {
    const unsigned number = scheme->toUInt();
    if (number == kPreferDark || number == kPreferLight) {
      settings.dark = number == kPreferDark;
    }
  }
  if (const auto reduced = value({kAppearance, kReducedMotion})) {
    settings.reducedMotion = reduced->toUInt() != 0;
  } else if (const auto animations = value({kDesktop, kAnimations})) {
    settings.reducedMotion = !animations->toBool();
  }
  return settings;
}

}  // namespace zephyl::linux_host
