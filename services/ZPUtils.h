// What the rest of the library asks of the system: the release, biometrics, texts of the Messages
// app, phone numbers, vibration, settings. Stateless but for the shared authentication context and
// the unlock session.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Export.h"
#include "platform/addressbook/ABAddressBook.h"
#include "platform/localauthentication/LAContext.h"

namespace zephyl {

class ZP_EXPORT ZPUtils {
 public:
  ZPUtils() = delete;

  // This release or a later one, by the leading decimal number of the system version in single
  // precision; asked afresh on every call. Any thread.
  [[nodiscard]] static bool isIOS8();
  [[nodiscard]] static bool isIOS8_3();
  [[nodiscard]] static bool isIOS9();
  [[nodiscard]] static bool isIOS10();
  [[nodiscard]] static bool isIOS11();
  [[nodiscard]] static bool isIOS12();
  [[nodiscard]] static bool isIOS13();
  [[nodiscard]] static bool isIOS14();

  // The one context of the process, made on first use. Any thread.
  [[nodiscard]] static std::shared_ptr<LAContext> context();

  // Whether a biometric check could be made now. From version 12 on a call off the main thread
  // blocks until the main thread has answered, so never call it where the main thread waits for the
  // caller.
  [[nodiscard]] static bool supportsTouchID();

  // The gate before protected groups (ZPUtilsAuthentication.cpp). A check that was answered opens a
  // session; where the settings say to remember it, further requests pass silently for the minutes
  // that they give. The session lives as long as the process and is not locked.

  // `error` is null on success and valid only during the call.
  using Completion = std::function<void(bool success, const NSError* error)>;

  // Whether a remembered session is still open, its last instant included. Kept: a clock that was
  // set back leaves it open. Any thread.
  [[nodiscard]] static bool shouldContinueWithoutRequestingForTouchID();

  // Calls `completion`, which may be empty: here with success when no check is possible or a
  // session is open, here with an error when the device turns out unable to check, else on the
  // thread of the authentication service with its answer. Kept: a check that failed or was
  // cancelled opens a session too. May block like `supportsTouchID`.
  static void requestForAuthentication(const std::string& reason, Completion completion);

  // Ends any session; for the host, as when the device locks. Any thread.
  static void resetLastUnlockedTimestamp();

  // A text of the Messages app; a key that its table does not know comes back as it is.
  [[nodiscard]] static std::string chatKitLocalizedString(const std::string& key);

  // The text of the first key that the table knows, else the last key; nothing for no keys.
  [[nodiscard]] static std::optional<std::string> chatKitLocalizedStringWithKeys(
      const std::vector<std::string>& keys);

  // The number as the address book displays it; nothing when it has no answer.
  [[nodiscard]] static std::optional<std::string> formattedPhoneNumber(const std::string& text);

  // The text without spaces, parentheses and hyphens of ASCII; all else stays. The form in which
  // numbers are compared and stored.
  [[nodiscard]] static std::string plainPhoneNumber(const std::string& text);

  // Kept: always -1, "unknown"; a look-up can be put in here.
  [[nodiscard]] static std::int64_t contactIDFromPhoneNumber(const std::string& plainNumber,
                                                             const ABAddressBookRef& addressBook);

  // One short vibration, even when the user has switched off vibration on ring; nothing before
  // version 9. A second half may follow on the main queue after 0.3 seconds.
  static void vibrateDevice();

  // The master switch of the shared settings.
  [[nodiscard]] static bool isZephylsEnabled();

  // The phone's path of the settings file.
  [[nodiscard]] static std::string settingsFilePath();
};

}  // namespace zephyl
