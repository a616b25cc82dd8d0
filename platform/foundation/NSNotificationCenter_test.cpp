#include "platform/foundation/NSNotificationCenter.h"

#include <string>

#include <gtest/gtest.h>

namespace zephyl {
namespace {

TEST(NSNotificationCenterTest, ReachesTheObserversOfThatNameInTheirOrder) {
  NSNotificationCenter center;
  std::string heard;
  center.addObserver(&heard, "a", [&](const NSNotification&) { heard += "1"; });
  center.addObserver(&heard, "b", [&](const NSNotification&) { heard += "no"; });
  center.addObserver(&heard, "a", [&](const NSNotification&) { heard += "2"; });
  center.postNotificationName("a");
  EXPECT_EQ(heard, "12");
}

TEST(NSNotificationCenterTest, CarriesObjects) {
  NSNotificationCenter center;
  int got = 0;
  center.addObserver(&got, "a", [&](const NSNotification& notification) {
    got = std::any_cast<int>(notification.userInfo.at("zephyls"));
  });
  center.postNotificationName("a", {{"zephyls", 7}});
  EXPECT_EQ(got, 7);
}

TEST(NSNotificationCenterTest, ARemovedObserverHearsNoMore) {
  NSNotificationCenter center;
  int heard = 0;
  const int other = 0;
  center.addObserver(&heard, "a", [&](const NSNotification&) { ++heard; });
  center.addObserver(&other, "a", [&](const NSNotification&) { heard += 10; });
  center.removeObserver(&heard);
  center.postNotificationName("a");
  EXPECT_EQ(heard, 10);
}

TEST(NSNotificationCenterTest, AnObserverMayRemoveItselfWhileItIsTold) {
  NSNotificationCenter center;
  int heard = 0;
  center.addObserver(&heard, "a", [&](const NSNotification&) {
    ++heard;
    center.removeObserver(&heard);
  });
  center.postNotificationName("a");
  center.postNotificationName("a");
  EXPECT_EQ(heard, 1);
}

}  // namespace
}  // namespace zephyl
