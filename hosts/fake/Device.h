// A whole device in memory, for tests: deterministic, scriptable, and failing on demand. Installs
// itself for as long as it lives. The thread that makes it is the main thread.

#pragma once

#include <memory>

#include "platform/Host.h"

#include "hosts/fake/FakeAuthentication.h"
#include "hosts/fake/FakeCollation.h"
#include "hosts/fake/FakeConversationList.h"
#include "hosts/fake/FakeDispatch.h"
#include "hosts/fake/FakeFiles.h"
#include "hosts/fake/FakeMessagingCenter.h"
#include "hosts/fake/FakeNotifications.h"
#include "hosts/fake/FakePhoneBook.h"
#include "hosts/fake/FakeSystem.h"
#include "hosts/fake/FakeUserDefaults.h"
#include "hosts/fake/uikit/FakeUIKit.h"

namespace zephyl::fake {

class Device : public Host {
 public:
  Device() { install(*this); }
  ~Device() override { uninstall(); }
  Device(const Device&) = delete;
  Device& operator=(const Device&) = delete;

  FakeFiles& files() override { return files_; }
  FakeUserDefaults& userDefaults() override { return userDefaults_; }
  FakeClock& clock() override { return clock_; }
  FakeCollation& collation() override { return collation_; }
  FakeDispatch& dispatch() override { return dispatch_; }
  FakeSystemLog& systemLog() override { return systemLog_; }
  FakeNotifications& darwinNotifications() override { return notifications_; }
  FakeProcessInfo& processInfo() override { return processInfo_; }
  FakeMessagingCenter& messagingCenter() override { return messagingCenter_; }
  FakeUIDevice& device() override { return device_; }
  FakeAudioServices& audioServices() override { return audioServices_; }
  FakeConversationList& conversationList() override { return conversationList_; }
  std::shared_ptr<ABAddressBook> addressBook() override { return addressBook_; }
  FakeFavorites& favorites() override { return favorites_; }
  FakePhoneFormatting& phoneFormatting() override { return phoneFormatting_; }
  FakeUIKit* uikit() override { return hasScreen_ ? &uikit_ : nullptr; }
  std::shared_ptr<LAContext> makeLAContext() override { return authentication_; }

  // The one context that this device hands out.
  FakeAuthentication& authentication() { return *authentication_; }
  FakeAddressBook& people() { return *addressBook_; }

  // A process without a screen, such as a command.
  void setHasScreen(bool hasScreen) { hasScreen_ = hasScreen; }

  // The other process: the same files, everything made once per process made anew.
  void restartProcess() {
    uninstall();
    install(*this);
  }

 private:
  FakeSystemLog systemLog_;
  FakeFiles files_{systemLog_};
  FakeUserDefaults userDefaults_;
  FakeClock clock_;
  FakeCollation collation_;
  FakeDispatch dispatch_;
  FakeNotifications notifications_{dispatch_};
  FakeProcessInfo processInfo_;
  FakeMessagingCenter messagingCenter_;
  FakeUIDevice device_;
  FakeAudioServices audioServices_;
  FakeConversationList conversationList_;
  std::shared_ptr<FakeAddressBook> addressBook_ = std::make_shared<FakeAddressBook>();
  FakeFavorites favorites_;
  FakePhoneFormatting phoneFormatting_;
  std::shared_ptr<FakeAuthentication> authentication_ =
      std::make_shared<FakeAuthentication>(dispatch_);
  FakeUIKit uikit_;
  bool hasScreen_ = true;
};

}  // namespace zephyl::fake
