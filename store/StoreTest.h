// The fixture of the store's tests: a device, groups files, and what was posted.

#pragma once

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/foundation/NSNotificationCenter.h"
#include "platform/foundation/PropertyList.h"

#include "hosts/fake/Conversations.h"
#include "hosts/fake/Device.h"
#include "model/TestGroups.h"
#include "store/ZephylsDataController.h"

namespace zephyl::test {

class StoreTest : public ::testing::Test {
 protected:
  using Titles = std::vector<std::string>;

  static constexpr char kGroupsFile[] =
      "/var/mobile/Library/Preferences/com.vantor.zephyls-profiles.plist";

  static std::shared_ptr<ZephylsDataController> store() {
    return ZephylsDataController::sharedInstance();
  }
  static ZephylRef made(const Dictionary& dictionary) {
    return std::make_shared<Zephyl>(dictionary);
  }
  static Titles titles(const ZephylVector& groups) {
    Titles names;
    for (const ZephylRef& group : groups) {
      names.push_back(group->title());
    }
    return names;
  }

  void putGroups(const Array& groups) {
    device_.files().put(kGroupsFile, writeXmlPropertyList(Value(groups)));
  }
  // What the groups file holds now.
  Array stored() {
    const auto content = device_.files().contentsAtPath(kGroupsFile);
    const auto list = readPropertyList(content.value_or(std::string()));
    return list.ok() && list.value().ifArray() != nullptr ? *list.value().ifArray() : Array();
  }
  Titles storedTitles() {
    Titles names;
    for (const Value& group : stored()) {
      names.push_back(*(*group.ifDictionary())[keys::kTitle].ifString());
    }
    return names;
  }
  // From now on `notifications_` takes those of that name.
  void watch(const std::string& name) {
    NSNotificationCenter::defaultCenter()->addObserver(
        this, name,
        [this](const NSNotification& notification) { notifications_.push_back(notification); });
  }
  // Groups show what the store's own rule says.
  void showByTheRules() {
    device_.conversationList().setShows(
        [](const ZephylRef& group, const CKConversationRef& conversation) {
          return store()->isConversationMemberOfGroup(group, conversation, host().addressBook());
        });
  }

  fake::Device device_;
  std::vector<NSNotification> notifications_;
};

}  // namespace zephyl::test
