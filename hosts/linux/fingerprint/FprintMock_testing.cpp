#include "hosts/linux/fingerprint/FprintMock_testing.h"

#include <QDBusObjectPath>
#include <QStringList>
#include <algorithm>
#include <chrono>

namespace zephyl::test {

namespace {

constexpr const char* kReader = "/net/reactivated/Fprint/Device/7";

}  // namespace

QDBusMessage verifyStatus(const std::string& result) {
  const bool done = result.ends_with("!");
  QDBusMessage signal =
      QDBusMessage::createSignal(kReader, "net.reactivated.Fprint.Device", "VerifyStatus");
  signal << QString::fromStdString(done ? result.substr(0, result.size() - 1) : result) << done;
  return signal;
}

FprintMock::FprintMock(const std::string& busAddress, Script script)
    : script_(std::move(script)),
      service_(std::make_unique<ServiceOnBus>(
          busAddress, "net.reactivated.Fprint", "/net/reactivated/Fprint",
          [this](const QDBusMessage& call, const QDBusConnection& bus) { handle(call, bus); })) {}

void FprintMock::setScript(Script script) {
  const std::lock_guard lock(mutex_);
  script_ = std::move(script);
}

void FprintMock::say(const std::string& result) {
  service_->send(verifyStatus(result));
}

std::vector<std::string> FprintMock::calls() const {
  const std::lock_guard lock(mutex_);
  return calls_;
}

bool FprintMock::waitForCall(const std::string& call) {
  std::unique_lock lock(mutex_);
  return changed_.wait_for(lock, std::chrono::seconds(20), [&] {
    return std::find(calls_.begin(), calls_.end(), call) != calls_.end();
  });
}

void FprintMock::handle(const QDBusMessage& call, const QDBusConnection& bus) {
  const QString text = call.arguments().value(0).toString();
  std::unique_lock lock(mutex_);
  const Script script = script_;
  calls_.push_back(call.member().append("(").append(text).append(")").toStdString());
  changed_.notify_all();
  lock.unlock();
  answer(call, bus, script);
}

void FprintMock::answer(const QDBusMessage& call, const QDBusConnection& bus,
                        const Script& script) {
  const std::string method = call.member().toStdString();
  if (const auto results = script.results.find(method); results != script.results.end()) {
    for (const std::string& result : results->second) {
      bus.send(verifyStatus(result));
    }
  }
  if (script.hangs.contains(method)) {
    return;
  }
  if (const auto error = script.errors.find(method); error != script.errors.end()) {
    bus.send(call.createErrorReply(
        QString("net.reactivated.Fprint.Error.").append(QString::fromStdString(error->second)),
        "as the test wants"));
  } else if (script.nonsense.contains(method)) {
    bus.send(call.createReply(QVariant(42)));
  } else if (method == "GetDefaultDevice") {
    bus.send(call.createReply(QVariant::fromValue(QDBusObjectPath(kReader))));
  } else if (method == "ListEnrolledFingers") {
    QStringList fingers;
    for (const std::string& finger : script.fingers) {
      fingers.append(QString::fromStdString(finger));
    }
    bus.send(call.createReply(fingers));
  } else {
    bus.send(call.createReply());
  }
}

}  // namespace zephyl::test
