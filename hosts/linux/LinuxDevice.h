// A whole device on Linux: the seams served from a folder of the user's, Qt's event loop and the
// session bus, and by what the program brings along.
//
// Made on the thread of the QCoreApplication, which must outlive it; installed by the program.
// Costs nothing until it is asked: no file is read, no thread and no bus connection made.

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Host.h"
#include "platform/addressbook/ABAddressBook.h"
#include "platform/addressbook/ABFavorites.h"
#include "platform/addressbook/ABPhoneFormatting.h"
#include "platform/appsupport/CPDistributedMessagingCenter.h"
#include "platform/chatkit/CKConversationList.h"
#include "platform/foundation/DarwinNotificationCenter.h"
#include "platform/foundation/Dispatch.h"
#include "platform/foundation/SystemLog.h"
#include "platform/uikit/UIDevice.h"
#include "platform/uikit/UIKitHost.h"

#include "hosts/linux/OverwriteGuard.h"
#include "hosts/linux/ScriptedAuthentication.h"
#include "hosts/linux/safety/SafetyCopies.h"

namespace zephyl::linux_host {

class LinuxDispatch;
class MessageServer;

struct DeviceOptions {
  std::string deviceRoot;  // the folder that stands for the phone's "/"
  std::string overlay;     // the program's own files; empty: none

  std::string systemVersion = "14.0";
  UIUserInterfaceIdiom userInterfaceIdiom = UIUserInterfaceIdiom::kPhone;
  std::string bundleIdentifier = "com.apple.MobileSMS";
  std::vector<std::string> languages = {"en"};  // tags, the best first

  // Not given: the system log of this machine, which `verbose` writes to standard error too.
  std::unique_ptr<SystemLog> systemLog;
  bool verbose = false;

  // Whether the device has a fingerprint reader, and how a check on it ends; without a function it
  // fails.
  bool hasBiometrics = false;
  ScriptedAuthentication::Answer authenticate;

  // What makes the context instead, when given. Called on the thread that asks for it.
  std::function<std::shared_ptr<LAContext>()> makeAuthentication;

  OverwriteGuard::NeedsCopy needsCopyBeforeOverwrite;

  // The one file of which safety copies are kept; not given: none.
  SafetyOptions safety;

  // Not given: messages are answered in this process, by `messageServers`, and notifications stay
  // in it. `inProcess` is what would answer then, and outlives what is made, as the others do.
  std::function<std::unique_ptr<CPDistributedMessagingCenter>(
      CPDistributedMessagingCenter& inProcess, SystemLog& log)>
      makeMessagingCenter;
  std::function<std::unique_ptr<DarwinNotificationCenter>(Dispatch& dispatch, SystemLog& log)>
      makeNotifications;

  // Those not given are empty: no conversations, nobody in the address book, no favourites, no
  // phone number formatted.
  std::unique_ptr<CKConversationList> conversationList;
  ABAddressBookRef addressBook;
  std::unique_ptr<ABFavorites> favorites;
  std::unique_ptr<ABPhoneFormatting> phoneFormatting;

  // Not given: a process without a screen.
  std::unique_ptr<UIKitHost> uikit;
};

class LinuxDevice : public Host {
 public:
  explicit LinuxDevice(DeviceOptions options);
  ~LinuxDevice() override;
  LinuxDevice(const LinuxDevice&) = delete;
  LinuxDevice& operator=(const LinuxDevice&) = delete;

  NSFileManager& files() override;
  NSUserDefaults& userDefaults() override;
  Clock& clock() override;
  Collation& collation() override;
  Dispatch& dispatch() override;
  SystemLog& systemLog() override;
  DarwinNotificationCenter& darwinNotifications() override;
  ProcessInfo& processInfo() override;
  CPDistributedMessagingCenter& messagingCenter() override;
  UIDevice& device() override;
  AudioServices& audioServices() override;
  CKConversationList& conversationList() override;
  ABAddressBookRef addressBook() override;
  ABFavorites& favorites() override;
  ABPhoneFormatting& phoneFormatting() override;
  UIKitHost* uikit() override;
  std::shared_ptr<LAContext> makeLAContext() override;

  // What programs do beyond the seams: run the queues without an event loop, serve messages in this
  // process.
  [[nodiscard]] LinuxDispatch& queues();
  [[nodiscard]] MessageServer& messageServers();

 private:
  struct Parts;

  std::unique_ptr<Parts> parts_;
};

}  // namespace zephyl::linux_host
