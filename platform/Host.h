// The device that the library runs on: one object that gathers everything the library asks of it.
// A process installs one at its start, before the first use of the library.

#pragma once

#include <functional>
#include <memory>

#include "platform/Export.h"

namespace zephyl {

class ABAddressBook;
class ABFavorites;
class ABPhoneFormatting;
class AudioServices;
class CKConversationList;
class CPDistributedMessagingCenter;
class Clock;
class Collation;
class DarwinNotificationCenter;
class Dispatch;
class LAContext;
class NSFileManager;
class NSUserDefaults;
class ProcessInfo;
class SystemLog;
class UIDevice;
class UIKitHost;

// Each call gives the same object for as long as the host lives. Any thread.
class Host {
 public:
  virtual ~Host() = default;

  [[nodiscard]] virtual NSFileManager& files() = 0;
  [[nodiscard]] virtual NSUserDefaults& userDefaults() = 0;
  [[nodiscard]] virtual Clock& clock() = 0;
  [[nodiscard]] virtual Collation& collation() = 0;
  [[nodiscard]] virtual Dispatch& dispatch() = 0;
  [[nodiscard]] virtual SystemLog& systemLog() = 0;
  [[nodiscard]] virtual DarwinNotificationCenter& darwinNotifications() = 0;
  [[nodiscard]] virtual ProcessInfo& processInfo() = 0;
  [[nodiscard]] virtual CPDistributedMessagingCenter& messagingCenter() = 0;
  [[nodiscard]] virtual UIDevice& device() = 0;
  [[nodiscard]] virtual AudioServices& audioServices() = 0;
  [[nodiscard]] virtual CKConversationList& conversationList() = 0;
  [[nodiscard]] virtual std::shared_ptr<ABAddressBook> addressBook() = 0;
  [[nodiscard]] virtual ABFavorites& favorites() = 0;
  [[nodiscard]] virtual ABPhoneFormatting& phoneFormatting() = 0;

  // What views are drawn with; null in a process without a screen.
  [[nodiscard]] virtual UIKitHost* uikit() = 0;

  // A new context on each call.
  [[nodiscard]] virtual std::shared_ptr<LAContext> makeLAContext() = 0;
};

// Asserts that no host is installed. The host must outlive its installation.
ZP_EXPORT void install(Host& host);

// Takes the installed host away and forgets everything that was made once for the process: the
// store, the settings, the authentication context, the notification observers.
ZP_EXPORT void uninstall();

// Asserts that a host is installed.
[[nodiscard]] ZP_EXPORT Host& host();

namespace detail {
// `forget` runs at the next `uninstall`, once.
ZP_EXPORT void atUninstall(std::function<void()> forget);
}  // namespace detail

}  // namespace zephyl
