#include "hosts/linux/bus/BusMessagingCenter.h"

#include <QByteArray>
#include <QDBusError>
#include <QDBusMessage>
#include <QString>
#include <utility>

#include "platform/foundation/SystemLog.h"

#include "hosts/linux/bus/SessionBus.h"

namespace zephyl::linux_host {

namespace {

bool saysNobodyServes(const QDBusMessage& message) {
  return message.type() == QDBusMessage::ErrorMessage &&
         (message.errorName() == QDBusError::errorString(QDBusError::ServiceUnknown) ||
          message.errorName() == "org.freedesktop.DBus.Error.NameHasNoOwner");
}

}  // namespace

BusMessagingCenter::BusMessagingCenter(std::shared_ptr<SessionBus> bus,
                                       MessageCenterAddress address, SystemLog& log, Limits limits)
    : bus_(std::move(bus)),
      address_(std::move(address)),
      log_(log),
      limits_(limits),
      wire_(log, limits.bytes) {}

BusMessagingCenter::BusMessagingCenter(std::shared_ptr<SessionBus> bus,
                                       MessageCenterAddress address, SystemLog& log)
    : BusMessagingCenter(std::move(bus), std::move(address), log, Limits()) {}

QDBusMessage BusMessagingCenter::callOf(const char* method) const {
  return QDBusMessage::createMethodCall(QString::fromStdString(address_.service),
                                        QString::fromStdString(address_.path),
                                        kMessageCenterInterface, method);
}

BusMessagingCenter::Answer BusMessagingCenter::ask(const std::string& name,
                                                   const Dictionary* userInfo) {
  std::optional<Data> bytes = Data();
  if (userInfo != nullptr) {
    bytes = wire_.encoded(*userInfo, "The message " + name);
  }
  if (!bytes) {
    return {.isServed = true, .reply = std::nullopt};
  }
  if (!bus_->wasConnected()) {
    return {};
  }
  QDBusMessage message = callOf(kSendMethod);
  message << QString::fromStdString(name)
          << QByteArray(reinterpret_cast<const char*>(bytes->data()),
                        static_cast<qsizetype>(bytes->size()));
  const auto start = std::chrono::steady_clock::now();
  const QDBusMessage answer = bus_->call(message, limits_.wait);
  if (saysNobodyServes(answer)) {
    return {};
  }
  // A service that ends has the same error, but sooner. Timers may run out a little early.
  const bool isInTime = answer.type() == QDBusMessage::ReplyMessage ||
                        std::chrono::steady_clock::now() - start < limits_.wait * 9 / 10;
  return {.isServed = true, .isInTime = isInTime, .reply = replyIn(answer, name)};
}

std::optional<Dictionary> BusMessagingCenter::replyIn(const QDBusMessage& message,
                                                      const std::string& name) const {
  if (message.type() != QDBusMessage::ReplyMessage) {
    log_.log("No reply to " + name + ": " + message.errorName().toStdString());
    return std::nullopt;
  }
  if (message.signature() != kReplySignature) {
    log_.log("The reply to " + name + " is none: its types are \"" +
             message.signature().toStdString() + "\"");
    return std::nullopt;
  }
  if (!message.arguments().at(0).toBool()) {
    return std::nullopt;
  }
  const QByteArray bytes = message.arguments().at(1).toByteArray();
  return wire_.decoded(Data(bytes.begin(), bytes.end()), "The reply to " + name);
}

std::optional<Dictionary> BusMessagingCenter::sendMessageAndReceiveReplyName(
    const std::string& center, const std::string& name, const Dictionary* userInfo) {
  return center == address_.center ? ask(name, userInfo).reply : std::nullopt;
}

std::optional<std::string> BusMessagingCenter::servedDevice(std::chrono::milliseconds limit) {
  if (!bus_->wasConnected()) {
    return std::nullopt;
  }
  const QDBusMessage answer = bus_->call(callOf(kDeviceMethod), limit);
  if (saysNobodyServes(answer)) {
    return std::nullopt;
  }
  const bool makesSense = answer.type() == QDBusMessage::ReplyMessage && answer.signature() == "s";
  return makesSense ? answer.arguments().at(0).toString().toStdString() : std::string();
}

}  // namespace zephyl::linux_host
