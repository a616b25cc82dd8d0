#include <string>
#include <thread>

#include "platform/foundation/DarwinNotificationCenter.h"
#include "platform/foundation/Dispatch.h"

#include "hosts/contract/DeviceUnderTest.h"

namespace zephyl::contract {
namespace {

class NotificationsContract : public ContractTest {
 protected:
  DarwinNotificationCenter& center() { return host().darwinNotifications(); }

  std::uint64_t observe(const std::string& name, const std::string& text) {
    return center().addObserver(name, [this, text] { heard_ += text; });
  }

  std::string heard_;
};
ZEPHYLS_MESSAGING_CONTRACT(NotificationsContract);

TEST_P(NotificationsContract, APostReachesItsObserversOnTheMainQueue) {
  bool onMain = false;
  center().addObserver("changed", [&] { onMain = host().dispatch().isMainThread(); });
  observe("changed", "one ");
  observe("changed", "two ");
  observe("other", "wrong");
  center().post("changed");
  EXPECT_EQ(heard_, "");
  device().settle();
  EXPECT_EQ(heard_, "one two ");
  EXPECT_TRUE(onMain);
}

TEST_P(NotificationsContract, EachPostIsHeard) {
  observe("changed", "x");
  center().post("changed");
  center().post("changed");
  device().settle();
  center().post("changed");
  device().settle();
  EXPECT_EQ(heard_, "xxx");
}

TEST_P(NotificationsContract, AnObserverHearsNothingOfTheTimeBeforeIt) {
  center().post("changed");
  observe("changed", "x");
  device().settle();
  EXPECT_EQ(heard_, "");
}

TEST_P(NotificationsContract, ARemovedObserverHearsNothingMore) {
  const auto number = observe("changed", "removed");
  observe("changed", "kept");
  center().post("changed");
  center().removeObserver(number);
  device().settle();
  EXPECT_EQ(heard_, "kept");
}

TEST_P(NotificationsContract, RemovingTwiceOrWhatNeverWasDoesNothing) {
  const auto number = observe("changed", "x");
  center().removeObserver(number + 100);
  center().post("changed");
  device().settle();
  center().removeObserver(number);
  center().removeObserver(number);
  center().post("changed");
  device().settle();
  EXPECT_EQ(heard_, "x");
}

TEST_P(NotificationsContract, AnObserverMayRemoveItselfAndAddAnother) {
  std::uint64_t number = 0;
  number = center().addObserver("changed", [&] {
    center().removeObserver(number);
    heard_ += "old ";
    observe("changed", "new ");
  });
  center().post("changed");
  device().settle();
  EXPECT_EQ(heard_, "old ");
  center().post("changed");
  device().settle();
  EXPECT_EQ(heard_, "old new ");
}

TEST_P(NotificationsContract, AnyThreadMayPostAndObserve) {
  std::thread([this] {
    observe("changed", "x");
    center().post("changed");
  }).join();
  device().settle();
  EXPECT_EQ(heard_, "x");
}

}  // namespace
}  // namespace zephyl::contract
