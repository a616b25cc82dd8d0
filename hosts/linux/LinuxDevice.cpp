#include "hosts/linux/LinuxDevice.h"

#include <utility>

#include "hosts/common/InProcessNotifications.h"
#include "hosts/linux/DeviceRoot.h"
#include "hosts/linux/EmptySources.h"
#include "hosts/linux/InProcessMessagingCenter.h"
#include "hosts/linux/LinuxClock.h"
#include "hosts/linux/LinuxDispatch.h"
#include "hosts/linux/LinuxFiles.h"
#include "hosts/linux/LinuxProcessInfo.h"
#include "hosts/linux/LinuxSystemLog.h"
#include "hosts/linux/LinuxUIDevice.h"
#include "hosts/linux/LinuxUserDefaults.h"
#include "hosts/linux/LinuxVibration.h"
#include "hosts/linux/contacts/LinuxCollation.h"

namespace zephyl::linux_host {

namespace {

// With everything that was not given.
DeviceOptions completed(DeviceOptions options) {
  if (options.systemLog == nullptr) {
    options.systemLog = std::make_unique<LinuxSystemLog>(options.verbose);
  }
  if (!options.makeNotifications) {
    options.makeNotifications = [](Dispatch& dispatch, SystemLog& /*log*/) {
      return std::make_unique<InProcessNotifications>(dispatch);
    };
  }
  if (options.conversationList == nullptr) {
    options.conversationList = std::make_unique<EmptyConversationList>();
  }
  if (options.addressBook == nullptr) {
    options.addressBook = std::make_shared<EmptyAddressBook>();
  }
  if (options.favorites == nullptr) {
    options.favorites = std::make_unique<NoFavorites>();
  }
  if (options.phoneFormatting == nullptr) {
    options.phoneFormatting = std::make_unique<NoPhoneFormatting>();
  }
  return options;
}

}  // namespace

// In the order in which they lean on one another.
struct LinuxDevice::Parts {
  // `options` has everything.
  explicit Parts(DeviceOptions options)
      : root(options.deviceRoot, options.overlay),
        ownedLog(std::move(options.systemLog)),
        log(*ownedLog),
        collation(options.languages),
        files(root, log, clock, std::move(options.needsCopyBeforeOverwrite),
              std::move(options.safety)),
        userDefaults(root, log, clock, options.bundleIdentifier),
        processInfo(options.bundleIdentifier, std::move(options.languages)),
        device(std::move(options.systemVersion), options.userInterfaceIdiom),
        vibration(dispatch, options.bundleIdentifier),
        hasBiometrics(options.hasBiometrics),
        authenticate(std::move(options.authenticate)),
        makeAuthentication(std::move(options.makeAuthentication)),
        conversationList(std::move(options.conversationList)),
        addressBook(std::move(options.addressBook)),
        favorites(std::move(options.favorites)),
        phoneFormatting(std::move(options.phoneFormatting)),
        uikit(std::move(options.uikit)),
        notifications(options.makeNotifications(dispatch, log)) {
    if (options.makeMessagingCenter) {
      otherMessagingCenter = options.makeMessagingCenter(messagingCenter, log);
    }
  }

  DeviceRoot root;
  std::unique_ptr<SystemLog> ownedLog;
  SystemLog& log;
  LinuxClock clock;
  LinuxCollation collation;
  LinuxDispatch dispatch;
  LinuxFiles files;
  LinuxUserDefaults userDefaults;
  LinuxProcessInfo processInfo;
  LinuxUIDevice device;
  LinuxVibration vibration;
  bool hasBiometrics;
  ScriptedAuthentication::Answer authenticate;
  std::function<std::shared_ptr<LAContext>()> makeAuthentication;
  InProcessMessagingCenter messagingCenter{log};
  std::unique_ptr<CPDistributedMessagingCenter> otherMessagingCenter;  // in its place, or null
  std::unique_ptr<CKConversationList> conversationList;
  ABAddressBookRef addressBook;
  std::unique_ptr<ABFavorites> favorites;
  std::unique_ptr<ABPhoneFormatting> phoneFormatting;
  std::unique_ptr<UIKitHost> uikit;
  std::unique_ptr<DarwinNotificationCenter> notifications;
};

LinuxDevice::LinuxDevice(DeviceOptions options)
    : parts_(std::make_unique<Parts>(completed(std::move(options)))) {}

// The queues stop before anything that their tasks may use goes.
LinuxDevice::~LinuxDevice() {
  parts_->dispatch.stop();
}

NSFileManager& LinuxDevice::files() {
  return parts_->files;
}

NSUserDefaults& LinuxDevice::userDefaults() {
  return parts_->userDefaults;
}

Clock& LinuxDevice::clock() {
  return parts_->clock;
}

Collation& LinuxDevice::collation() {
  return parts_->collation;
}

Dispatch& LinuxDevice::dispatch() {
  return parts_->dispatch;
}

SystemLog& LinuxDevice::systemLog() {
  return parts_->log;
}

DarwinNotificationCenter& LinuxDevice::darwinNotifications() {
  return *parts_->notifications;
}

ProcessInfo& LinuxDevice::processInfo() {
  return parts_->processInfo;
}

CPDistributedMessagingCenter& LinuxDevice::messagingCenter() {
  return parts_->otherMessagingCenter != nullptr ? *parts_->otherMessagingCenter
                                                 : parts_->messagingCenter;
}

UIDevice& LinuxDevice::device() {
  return parts_->device;
}

AudioServices& LinuxDevice::audioServices() {
  return parts_->vibration;
}

CKConversationList& LinuxDevice::conversationList() {
  return *parts_->conversationList;
}

ABAddressBookRef LinuxDevice::addressBook() {
  return parts_->addressBook;
}

ABFavorites& LinuxDevice::favorites() {
  return *parts_->favorites;
}

ABPhoneFormatting& LinuxDevice::phoneFormatting() {
  return *parts_->phoneFormatting;
}

UIKitHost* LinuxDevice::uikit() {
  return parts_->uikit.get();
}

std::shared_ptr<LAContext> LinuxDevice::makeLAContext() {
  if (parts_->makeAuthentication) {
    return parts_->makeAuthentication();
  }
  if (!parts_->hasBiometrics) {
    return std::make_shared<NoAuthentication>();
  }
  return std::make_shared<ScriptedAuthentication>(parts_->authenticate);
}

LinuxDispatch& LinuxDevice::queues() {
  return parts_->dispatch;
}

MessageServer& LinuxDevice::messageServers() {
  return parts_->messagingCenter;
}

}  // namespace zephyl::linux_host
