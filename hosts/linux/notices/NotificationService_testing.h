// The notification service of a desktop, as far as tests need one. Lives on the thread with the
// event loop.

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QString>
#include <QStringList>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace zephyl::linux_host {

// Writes down what it is asked to show, and numbers it.
class NotificationService : public QDBusVirtualObject {
 public:
  NotificationService(const std::string& address, QStringList capabilities, uint firstNumber = 7)
      : bus_(QDBusConnection::connectToBus(QString::fromStdString(address), name())),
        capabilities_(std::move(capabilities)),
        number_(firstNumber) {
    EXPECT_TRUE(bus_.registerVirtualObject("/org/freedesktop/Notifications", this));
    EXPECT_TRUE(bus_.registerService("org.freedesktop.Notifications"));
  }
  ~NotificationService() override {
    bus_.unregisterService("org.freedesktop.Notifications");
    QDBusConnection::disconnectFromBus(name());
  }

  QString introspect(const QString& /*path*/) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
    if (message.member() == "GetCapabilities") {
      bus.send(message.createReply(capabilities_));
    } else if (message.member() == "Notify") {
      shown_.push_back(message);
      const uint replaced = message.arguments().value(1).toUInt();
      if (fails_) {
        bus.send(message.createErrorReply("org.example.Refused",
                                          message.arguments().value(4).toString()));
      } else if (isSilent_) {
        unanswered_.push_back(message);
      } else {
        bus.send(message.createReply(replaced == 0 ? number_++ : replaced));
      }
    }
    return true;
  }

  void setFails(bool fails) { fails_ = fails; }
  // Leaves calls unanswered until told to answer them.
  void setSilent() { isSilent_ = true; }
  void answer() {
    isSilent_ = false;
    for (const QDBusMessage& message : unanswered_) {
      bus_.send(message.createReply(number_++));
    }
  }

  [[nodiscard]] const std::vector<QDBusMessage>& shown() const { return shown_; }
  [[nodiscard]] std::vector<std::string> bodies() const { return texts(4); }
  [[nodiscard]] std::vector<std::string> titles() const { return texts(3); }
  [[nodiscard]] std::vector<uint> replaced() const {
    std::vector<uint> numbers;
    numbers.reserve(shown_.size());
    for (const QDBusMessage& message : shown_) {
      numbers.push_back(message.arguments().value(1).toUInt());
    }
    return numbers;
  }

 private:
  static QString name() { return "notification service"; }
  [[nodiscard]] std::vector<std::string> texts(int argument) const {
    std::vector<std::string> texts;
    texts.reserve(shown_.size());
    for (const QDBusMessage& message : shown_) {
      texts.push_back(message.arguments().value(argument).toString().toStdString());
    }
    return texts;
  }

  QDBusConnection bus_;
  const QStringList capabilities_;
  uint number_;
  bool fails_ = false;
  bool isSilent_ = false;
  std::vector<QDBusMessage> shown_;
  std::vector<QDBusMessage> unanswered_;
};

}  // namespace zephyl::linux_host
