#include "hosts/linux/fingerprint/FprintProtocol.h"

#include <QDBusObjectPath>
#include <QStringList>
#include <QVariant>
#include <algorithm>
#include <array>

#include "hosts/linux/ScriptedAuthentication.h"

namespace zephyl::linux_host {

namespace {

struct KnownError {
  const char* name;
  std::int64_t code;
  const char* sentence;
  bool isAbsence = false;  // there is nothing to make a check with
};

constexpr std::array kKnownErrors{
    KnownError{"net.reactivated.Fprint.Error.NoSuchDevice", kBiometryNotAvailable,
               "There is no fingerprint reader.", /*isAbsence=*/true},
    KnownError{"net.reactivated.Fprint.Error.NoEnrolledPrints", kBiometryNotEnrolled,
               "No finger of yours is enrolled.", /*isAbsence=*/true},
    KnownError{"net.reactivated.Fprint.Error.AlreadyInUse", kBiometryNotAvailable,
               "Another program is using the fingerprint reader."},
    KnownError{"net.reactivated.Fprint.Error.PermissionDenied", kBiometryNotAvailable,
               "You may not use the fingerprint reader here."},
    KnownError{"org.freedesktop.DBus.Error.AccessDenied", kBiometryNotAvailable,
               "You may not use the fingerprint reader here."},
    KnownError{"org.freedesktop.DBus.Error.ServiceUnknown", kBiometryNotAvailable,
               "There is no fingerprint service.", /*isAbsence=*/true},
    KnownError{"org.freedesktop.DBus.Error.NameHasNoOwner", kBiometryNotAvailable,
               "There is no fingerprint service.", /*isAbsence=*/true},
    KnownError{"org.freedesktop.DBus.Error.Disconnected", kSystemCancel,
               "The system bus went away."},
    KnownError{"org.freedesktop.DBus.Error.NoReply", kSystemCancel,
               "The fingerprint service does not answer."},
    KnownError{"org.freedesktop.DBus.Error.Timeout", kSystemCancel,
               "The fingerprint service does not answer."},
    KnownError{"org.freedesktop.DBus.Error.TimedOut", kSystemCancel,
               "The fingerprint service does not answer."},
};

struct Hint {
  const char* result;
  const char* sentence;
};

constexpr std::array kHints{
    Hint{"verify-swipe-too-short", "That was too short. Swipe your finger again."},
    Hint{"verify-finger-not-centered", "Put the middle of your finger on the reader."},
    Hint{"verify-remove-and-retry", "Lift your finger and put it on the reader again."},
    Hint{"verify-too-fast", "That was too fast. Try again more slowly."},
};

}  // namespace

NSError fingerprintError(std::int64_t code, const std::string& sentence) {
  return NSError(kAuthenticationErrorDomain, code,
                 Dictionary{{kNSLocalizedDescriptionKey, sentence}});
}

QDBusMessage defaultReaderCall() {
  return QDBusMessage::createMethodCall("net.reactivated.Fprint", "/net/reactivated/Fprint/Manager",
                                        "net.reactivated.Fprint.Manager", "GetDefaultDevice");
}

QDBusMessage readerCall(const FprintReader& reader, const char* method) {
  return QDBusMessage::createMethodCall(reader.service, reader.path,
                                        "net.reactivated.Fprint.Device", method);
}

QDBusMessage readerCall(const FprintReader& reader, const char* method, const char* text) {
  QDBusMessage call = readerCall(reader, method);
  call << QString(text);
  return call;
}

std::optional<FprintReader> readerIn(const QDBusMessage& answer) {
  if (answer.signature() != "o") {
    return std::nullopt;
  }
  return FprintReader{answer.service(),
                      answer.arguments().constFirst().value<QDBusObjectPath>().path()};
}

NSError errorIn(const QDBusMessage& answer) {
  for (const KnownError& known : kKnownErrors) {
    if (answer.errorName() == known.name) {
      return fingerprintError(known.code, known.sentence);
    }
  }
  return fingerprintError(kBiometryNotAvailable, "The fingerprint reader cannot be used: " +
                                                     answer.errorMessage().toStdString());
}

std::optional<NSError> absenceIn(const QDBusMessage& answer) {
  const bool isAbsence = std::any_of(
      kKnownErrors.begin(), kKnownErrors.end(),
      [&](const KnownError& known) { return known.isAbsence && answer.errorName() == known.name; });
  return isAbsence ? std::optional(errorIn(answer)) : std::nullopt;
}

std::optional<NSError> whyNoFingers(const QDBusMessage& answer) {
  if (answer.signature() == "as" && answer.arguments().constFirst().toStringList().isEmpty()) {
    return fingerprintError(kBiometryNotEnrolled, "No finger of yours is enrolled.");
  }
  return absenceIn(answer);
}

NSError nonsenseError() {
  return fingerprintError(kBiometryNotAvailable,
                          "The fingerprint service gives answers that make no sense.");
}

std::string hintFor(const QString& result) {
  for (const Hint& hint : kHints) {
    if (result == hint.result) {
      return hint.sentence;
    }
  }
  return "Your finger was not read. Try again.";
}

std::optional<NSError> outcomeOf(const QString& result) {
  if (result == "verify-match") {
    return std::nullopt;
  }
  if (result == "verify-no-match") {
    return fingerprintError(kAuthenticationFailed, "That finger is not one of yours.");
  }
  if (result == "verify-disconnected") {
    return fingerprintError(kBiometryNotAvailable, "The fingerprint reader was unplugged.");
  }
  return fingerprintError(kSystemCancel, "The fingerprint reader failed.");
}

}  // namespace zephyl::linux_host
