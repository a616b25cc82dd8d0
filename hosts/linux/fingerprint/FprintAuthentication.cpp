#include "hosts/linux/fingerprint/FprintAuthentication.h"

#include <QDeadlineTimer>
#include <algorithm>
#include <utility>

#include "hosts/linux/ScriptedAuthentication.h"
#include "hosts/linux/fingerprint/BusConnection.h"
#include "hosts/linux/fingerprint/FprintProtocol.h"
#include "hosts/linux/fingerprint/FprintService.h"

namespace zephyl::linux_host {

namespace {

constexpr std::chrono::seconds kAnswerLife{1};

FprintOptions completed(FprintOptions options) {
  if (!options.now) {
    options.now = std::chrono::steady_clock::now;
  }
  return options;
}

}  // namespace

FprintAuthentication::FprintAuthentication(FprintOptions options)
    : options_(completed(std::move(options))), service_(std::make_unique<Service>(options_)) {}

FprintAuthentication::~FprintAuthentication() = default;

bool FprintAuthentication::canEvaluatePolicy(LAPolicy /*policy*/, NSError* error) {
  const std::lock_guard lock(asking_);
  const std::uint64_t checks = service_->checksEnded();
  const auto now = options_.now();
  if (!last_ || last_->checks != checks || now - last_->time >= kAnswerLife) {
    std::optional<NSError> whyNot = whyNoCheck();
    last_ = Answer{options_.now(), std::move(whyNot), checks};
  }
  if (last_->whyNot && error != nullptr) {
    *error = *last_->whyNot;
  }
  return !last_->whyNot;
}

std::optional<NSError> FprintAuthentication::whyNoCheck() const {
  const QDeadlineTimer deadline(options_.answerLimit);
  const std::string& given = options_.busAddress;
  BusConnection connection(given.empty() ? systemBusAddress() : given, options_.answerLimit);
  if (!connection.isConnected()) {
    return fingerprintError(kBiometryNotAvailable, "There is no system bus.");
  }
  const auto answerTo = [&](const QDBusMessage& call) {
    return connection.bus().call(call, QDBus::Block,
                                 static_cast<int>(std::max<qint64>(1, deadline.remainingTime())));
  };
  const QDBusMessage found = answerTo(defaultReaderCall());
  const std::optional<FprintReader> reader = readerIn(found);
  return reader ? whyNoFingers(answerTo(readerCall(*reader, "ListEnrolledFingers", "")))
                : absenceIn(found);
}

void FprintAuthentication::evaluatePolicy(LAPolicy /*policy*/, const std::string& localizedReason,
                                          Reply reply) {
  service_->check(localizedReason, std::move(reply));
}

void FprintAuthentication::setLocalizedFallbackTitle(const std::string& /*title*/) {}

void FprintAuthentication::cancel() {
  service_->cancel(kUserCancel);
}

}  // namespace zephyl::linux_host
