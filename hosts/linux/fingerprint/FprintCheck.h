// One check of the owner's finger with the fingerprint service, on a bus connection of its own,
// since the service lets go of the reader when that closes.
//
// Lives on the thread that made it, which needs no event loop but has a QCoreApplication in its
// process. Internal to FprintAuthentication.

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QEventLoop>
#include <QObject>
#include <QString>
#include <atomic>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/foundation/NSError.h"

#include "hosts/linux/fingerprint/FprintOptions.h"
#include "hosts/linux/fingerprint/FprintProtocol.h"

namespace zephyl::linux_host {

class FprintCheck : public QObject {
  Q_OBJECT

 public:
  // `options` must outlive this.
  FprintCheck(const FprintOptions& options, std::string reason);

  // Once. Returns when the owner was recognized, with nothing, or else with why not, and when the
  // reader is free again, in bounded time. Counts only what the service itself says, and only after
  // it gave the reader to this check: anybody on the bus can send its signals.
  [[nodiscard]] std::optional<NSError> run();

  // Makes the check end with that error soon; 0 does nothing. Any thread, also before `run`; the
  // first call counts.
  void cancel(std::int64_t code);

 private Q_SLOTS:
  void verifyStatus(const QString& result, bool done);
  void ownerChanged(const QString& name, const QString& oldOwner, const QString& newOwner);
  void busLost();

 private:
  // The first end counts. Nothing: the owner was recognized.
  void end(std::optional<NSError> outcome);

  void ask(QDBusConnection& bus);
  void freeReader(const QDBusConnection& bus);

  // The answer; nothing when the check is over, if only by this answer being an error.
  std::optional<QDBusMessage> answerTo(QDBusConnection& bus, const QDBusMessage& call);

  // Handles events until the condition holds, which only an event may bring about.
  void wait(const std::function<bool()>& done);

  void showQuestion();
  void show(FprintPrompt::Kind kind, const std::string& text) const;

  const FprintOptions& options_;
  const std::string reason_;
  QEventLoop events_;
  std::atomic<std::int64_t> cancelCode_ = 0;
  std::optional<FprintReader> reader_;
  bool claimed_ = false;  // or about to be
  bool started_ = false;  // or about to be
  bool asked_ = false;
  bool serviceIsGone_ = false;
  bool isOver_ = false;
  std::optional<NSError> outcome_;
};

}  // namespace zephyl::linux_host
