#include "hosts/linux/bus/BusNotifications.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>
#include <chrono>
#include <utility>

#include "platform/foundation/SystemLog.h"

#include "hosts/linux/bus/PostedSignals.h"
#include "hosts/linux/bus/SessionBus.h"

namespace zephyl::linux_host {

namespace {

constexpr auto kLongestWait = std::chrono::seconds(2);

}  // namespace

BusNotifications::BusNotifications(std::shared_ptr<SessionBus> bus, std::string path,
                                   Dispatch& dispatch, SystemLog& log)
    : bus_(std::move(bus)),
      path_(std::move(path)),
      log_(log),
      observers_(dispatch),
      signals_(std::make_unique<PostedSignals>(
          [this](const std::string& name) { observers_.post(name); })) {}

BusNotifications::~BusNotifications() {
  if (hasPosted_ && bus_->isConnected()) {
    bus_->flush(kLongestWait);
  }
}

void BusNotifications::post(const std::string& name) {
  observers_.post(name);
  if (!bus_->wasConnected()) {
    return;
  }
  QDBusMessage signal =
      QDBusMessage::createSignal(QString::fromStdString(path_), kNotifyInterface, kPostedSignal);
  signal << QString::fromStdString(name);
  if (bus_->isConnected() && bus_->connection().send(signal)) {
    hasPosted_ = true;
  } else if (!isLossTold_.exchange(true)) {
    log_.log("The message bus has gone: notifications reach this program only");
  }
}

void BusNotifications::listen() {
  if (!bus_->wasConnected()) {
    return;
  }
  QDBusConnection connection = bus_->connection();
  signals_->setOwnName(connection.baseService());
  connection.connect(QString(), QString::fromStdString(path_), kNotifyInterface, kPostedSignal,
                     signals_.get(), SLOT(posted(QDBusMessage)));
  bus_->flush(kLongestWait);
}

std::uint64_t BusNotifications::addObserver(const std::string& name,
                                            std::function<void()> callback) {
  std::call_once(listening_, [this] { listen(); });
  return observers_.addObserver(name, std::move(callback));
}

void BusNotifications::removeObserver(std::uint64_t observer) {
  observers_.removeObserver(observer);
}

}  // namespace zephyl::linux_host
