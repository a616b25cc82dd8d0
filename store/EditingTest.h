// The fixture of the tests of edits: what the callbacks were told, and in which order things went.

#pragma once

#include <any>
#include <cstddef>
#include <string>
#include <vector>

#include "platform/foundation/NSError.h"

#include "store/StoreTest.h"

namespace zephyl::test {

class EditingTest : public StoreTest {
 protected:
  using Words = std::vector<std::string>;

  static constexpr double kNow = 1'700'000'000.0;

  EditingTest() { device_.clock().set(kNow); }
  ~EditingTest() override { NSNotificationCenter::defaultCenter()->removeObserver(this); }

  ZephylsDataController::Success success() {
    return [this] { log_.emplace_back("success"); };
  }
  ZephylsDataController::Failure failure() {
    return [this](const NSError& error) {
      log_.emplace_back("failure");
      errors_.push_back(error);
    };
  }
  static Titles listed() { return titles(*store()->allZephyls()->snapshot()); }
  [[nodiscard]] int saves() { return device_.files().writesOf(kGroupsFile); }
  [[nodiscard]] Words posted() { return device_.darwinNotifications().posted(); }

  // The group that the only notification carries; null when it carries nothing.
  [[nodiscard]] ZephylRef carried() const {
    EXPECT_EQ(notifications_.size(), 1U);
    const auto& info = notifications_.at(0).userInfo;
    return info.empty() ? nullptr : std::any_cast<ZephylRef>(info.at(kZephylsKey));
  }

  // Another process with these groups and an empty log. It reads and writes the file itself.
  void startWith(const Array& groups) {
    device_.restartProcess();
    device_.device().setSystemVersion("11.4");
    putGroups(groups);
    EXPECT_EQ(store()->allZephyls()->size(), groups.size());
    log_.clear();
    loadsAtStart_ = device_.conversationList().asked();
    postedAtStart_ = posted().size();
  }

  // From now on groups travel by message and each save is answered so. The log tells of the saves,
  // with how many loads were done here and how many wait behind, and of the notifications, with how
  // many were posted system-wide before.
  void answerSavesByMessage(bool saved, const std::string& notification) {
    device_.device().setSystemVersion("13.3");
    device_.messagingCenter().setAnswer(kSaveGroupsMessage, [this, saved](const Dictionary*) {
      log_.push_back("save after " +
                     std::to_string(device_.conversationList().asked() - loadsAtStart_) +
                     " load here and " + std::to_string(device_.dispatch().waitingGlobal()));
      return Dictionary{{kServiceMessageData, saved}};
    });
    NSNotificationCenter::defaultCenter()->addObserver(
        this, notification,
        [this](const NSNotification&) { log_.push_back("posted here" + afterPosts()); });
  }
  ZephylsDataController::Success lateSuccess() {
    return [this] { log_.push_back("success" + afterPosts()); };
  }

  Words log_;
  std::vector<NSError> errors_;

 private:
  [[nodiscard]] std::string afterPosts() {
    return " after " + std::to_string(posted().size() - postedAtStart_) + " everywhere";
  }

  int loadsAtStart_ = 0;
  std::size_t postedAtStart_ = 0;
};

}  // namespace zephyl::test
