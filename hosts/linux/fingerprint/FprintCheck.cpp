#include "hosts/linux/fingerprint/FprintCheck.h"

#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QStringList>
#include <QTimer>
#include <utility>

#include "hosts/linux/ScriptedAuthentication.h"
#include "hosts/linux/fingerprint/BusConnection.h"

namespace zephyl::linux_host {

namespace {

// A reader that takes longer to stop is freed by the end of the connection.
constexpr std::chrono::milliseconds kStopLimit{1000};

NSError cancelled(std::int64_t code) {
  return fingerprintError(code, code == kUserCancel ? "The check was cancelled."
                                                    : "The check was ended by the program.");
}

}  // namespace

FprintCheck::FprintCheck(const FprintOptions& options, std::string reason)
    : options_(options), reason_(std::move(reason)) {}

std::optional<NSError> FprintCheck::run() {
  if (const std::int64_t code = cancelCode_; code != 0) {
    return cancelled(code);
  }
  const std::string& given = options_.busAddress;
  BusConnection connection(given.empty() ? systemBusAddress() : given, options_.answerLimit);
  if (!connection.isConnected()) {
    return fingerprintError(kBiometryNotAvailable, "There is no system bus.");
  }
  QTimer limit;
  QObject::connect(&limit, &QTimer::timeout, this, [this] {
    end(fingerprintError(kSystemCancel, "No finger was put on the reader in time."));
  });
  limit.start(options_.checkLimit);

  ask(connection.bus());
  wait([this] { return isOver_; });
  limit.stop();
  freeReader(connection.bus());
  if (asked_) {
    show(FprintPrompt::Kind::kEnd, "");
  }
  return outcome_;
}

void FprintCheck::cancel(std::int64_t code) {
  std::int64_t none = 0;
  cancelCode_.compare_exchange_strong(none, code);
  events_.wakeUp();
}

void FprintCheck::ask(QDBusConnection& bus) {
  bus.connect(QString(), "/org/freedesktop/DBus/Local", "org.freedesktop.DBus.Local",
              "Disconnected", this, SLOT(busLost()));
  const auto found = answerTo(bus, defaultReaderCall());
  if (!found) {
    return;
  }
  reader_ = readerIn(*found);
  if (!reader_) {
    end(nonsenseError());
    return;
  }
  bus.connect("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
              "NameOwnerChanged", QStringList{reader_->service}, "sss", this,
              SLOT(ownerChanged(QString, QString, QString)));
  claimed_ = true;
  if (!answerTo(bus, readerCall(*reader_, "Claim", ""))) {
    return;
  }
  // Not before: until now the results were those of another program's check.
  bus.connect(reader_->service, reader_->path, "net.reactivated.Fprint.Device", "VerifyStatus",
              this, SLOT(verifyStatus(QString, bool)));
  started_ = true;
  if (answerTo(bus, readerCall(*reader_, "VerifyStart", "any"))) {
    showQuestion();
  }
}

void FprintCheck::freeReader(const QDBusConnection& bus) {
  for (const auto& [isDue, method] :
       {std::pair(started_, "VerifyStop"), std::pair(claimed_, "Release")}) {
    if (isDue && !serviceIsGone_ && bus.isConnected()) {
      bool answered = false;
      const QDBusPendingCallWatcher watcher(
          bus.asyncCall(readerCall(*reader_, method), static_cast<int>(kStopLimit.count())));
      QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, this,
                       [&answered] { answered = true; });
      wait([&answered] { return answered; });
    }
  }
}

std::optional<QDBusMessage> FprintCheck::answerTo(QDBusConnection& bus, const QDBusMessage& call) {
  const QDBusPendingCallWatcher watcher(
      bus.asyncCall(call, static_cast<int>(options_.startLimit.count())));
  bool answered = false;
  QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, this,
                   [&answered] { answered = true; });
  // By the signal, not by asking the watcher, which knows of an answer before the signals that came
  // ahead of it were handled.
  wait([&] { return answered || isOver_; });
  if (isOver_) {
    return std::nullopt;
  }
  QDBusMessage answer = watcher.reply();
  if (answer.type() != QDBusMessage::ReplyMessage) {
    end(errorIn(answer));
    return std::nullopt;
  }
  return answer;
}

void FprintCheck::wait(const std::function<bool()>& done) {
  for (;;) {
    if (const std::int64_t code = cancelCode_; code != 0) {
      end(cancelled(code));
    }
    if (done()) {
      return;
    }
    events_.processEvents(QEventLoop::WaitForMoreEvents);
  }
}

void FprintCheck::verifyStatus(const QString& result, bool done) {
  if (isOver_) {
    return;
  }
  showQuestion();
  if (done) {
    end(outcomeOf(result));
  } else {
    show(FprintPrompt::Kind::kRetry, hintFor(result));
  }
}

void FprintCheck::ownerChanged(const QString& /*name*/, const QString& /*oldOwner*/,
                               const QString& newOwner) {
  if (newOwner.isEmpty()) {
    serviceIsGone_ = true;
    end(fingerprintError(kSystemCancel, "The fingerprint service went away."));
  }
}

void FprintCheck::busLost() {
  serviceIsGone_ = true;
  end(fingerprintError(kSystemCancel, "The system bus went away."));
}

void FprintCheck::end(std::optional<NSError> outcome) {
  if (!isOver_) {
    isOver_ = true;
    outcome_ = std::move(outcome);
  }
}

void FprintCheck::showQuestion() {
  if (!asked_) {
    asked_ = true;
    show(FprintPrompt::Kind::kAsk, reason_);
  }
}

void FprintCheck::show(FprintPrompt::Kind kind, const std::string& text) const {
  if (options_.prompt) {
    options_.prompt({kind, text});
  }
}

}  // namespace zephyl::linux_host
