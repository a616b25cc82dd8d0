#include "hosts/linux/LinuxVibration.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>
#include <QVariantMap>
#include <utility>

#include "platform/foundation/Dispatch.h"

#include "hosts/linux/SessionBusAddress.h"

namespace zephyl::linux_host {

namespace {

// Phases of "on or off" and milliseconds.
bool isAnywhereOn(const Array& pattern) {
  for (std::size_t i = 0; i + 1 < pattern.size(); i += 2) {
    if (pattern[i].boolValue() && pattern[i + 1].doubleValue() > 0.0) {
      return true;
    }
  }
  return false;
}

bool asksForVibration(const Dictionary& vibration) {
  const Value* intensity = vibration.find("Intensity");
  const Value* pattern = vibration.find("VibePattern");
  return (intensity == nullptr || intensity->doubleValue() > 0.0) && pattern != nullptr &&
         pattern->ifArray() != nullptr && isAnywhereOn(*pattern->ifArray());
}

// The same one each time.
QDBusConnection busAt(const std::string& address) {
  const QString name = QString::fromStdString(address);
  return QDBusConnection::connectToBus(name, "vibration " + name);
}

void triggerFeedback(const std::string& applicationIdentifier, const std::string& busAddress) {
  const auto address = busAddress.empty() ? sessionBusAddress() : busAddress;
  if (!address) {
    return;
  }
  const QDBusConnection bus = busAt(*address);
  if (!bus.isConnected()) {
    return;
  }
  QDBusMessage message = QDBusMessage::createMethodCall(
      "org.sigxcpu.Feedback", "/org/sigxcpu/Feedback", "org.sigxcpu.Feedback", "TriggerFeedback");
  message.setAutoStartService(false);
  constexpr int kLengthOfEvent = -1;
  // The quiet profile buzzes and makes no sound.
  message << QString::fromStdString(applicationIdentifier) << QString("message-new-instant")
          << QVariantMap{{"profile", "quiet"}} << kLengthOfEvent;
  bus.send(message);
}

}  // namespace

LinuxVibration::LinuxVibration(Dispatch& dispatch, std::string applicationIdentifier,
                               std::string busAddress)
    : dispatch_(dispatch),
      applicationIdentifier_(std::move(applicationIdentifier)),
      busAddress_(std::move(busAddress)) {}

void LinuxVibration::playSystemSoundWithVibration(std::uint32_t /*sound*/,
                                                  const Dictionary& vibration) {
  if (asksForVibration(vibration)) {
    dispatch_.globalAsync(QueuePriority::kHigh, [applicationIdentifier = applicationIdentifier_,
                                                 busAddress = busAddress_] {
      triggerFeedback(applicationIdentifier, busAddress);
    });
  }
}

}  // namespace zephyl::linux_host
