// The words of the fingerprint service on the system bus: its calls, what its answers mean, and
// what they are to the phone and to the owner. No state.

#pragma once

#include <QDBusMessage>
#include <QString>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/foundation/NSError.h"

namespace zephyl::linux_host {

// As the phone's own errors; the others stand in ScriptedAuthentication.h.
inline constexpr std::int64_t kUserCancel = -2;
inline constexpr std::int64_t kSystemCancel = -4;
inline constexpr std::int64_t kBiometryNotEnrolled = -7;
inline constexpr std::int64_t kBiometryLockout = -8;

// In the domain of the phone's errors, with a sentence for the owner.
[[nodiscard]] NSError fingerprintError(std::int64_t code, const std::string& sentence);

struct FprintReader {
  // The service by the name that no other program ever has, so that a question never goes to one
  // that takes its place, and no other program can answer.
  QString service;
  QString path;
};

[[nodiscard]] QDBusMessage defaultReaderCall();

// A call to the reader; every one but VerifyStop and Release takes a text.
[[nodiscard]] QDBusMessage readerCall(const FprintReader& reader, const char* method);
[[nodiscard]] QDBusMessage readerCall(const FprintReader& reader, const char* method,
                                      const char* text);

// The reader that `defaultReaderCall` found; nothing when the answer makes no sense.
[[nodiscard]] std::optional<FprintReader> readerIn(const QDBusMessage& answer);

// What the answer says to be missing: the service, a reader or a finger. Nothing for any other
// answer, whatever error it is.
[[nodiscard]] std::optional<NSError> absenceIn(const QDBusMessage& answer);

// The same of an answer to ListEnrolledFingers, which may also name no finger.
[[nodiscard]] std::optional<NSError> whyNoFingers(const QDBusMessage& answer);

// What an answer that is an error means. kSystemCancel for one that says that the service went
// away or took too long, else kBiometryNotAvailable or kBiometryNotEnrolled.
[[nodiscard]] NSError errorIn(const QDBusMessage& answer);

// An answer of the wrong form.
[[nodiscard]] NSError nonsenseError();

// What the owner should do after a result that does not end the check.
[[nodiscard]] std::string hintFor(const QString& result);

// What a result that ends the check means: nothing for a match.
[[nodiscard]] std::optional<NSError> outcomeOf(const QString& result);

}  // namespace zephyl::linux_host
