#include "hosts/linux/InProcessMessagingCenter.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/fake/FakeSystem.h"

namespace zephyl::linux_host {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class InProcessMessagingCenterTest : public ::testing::Test {
 protected:
  std::optional<Dictionary> send(const std::string& name, const Dictionary& userInfo) {
    return center_.sendMessageAndReceiveReplyName("center", name, &userInfo);
  }

  fake::FakeSystemLog log_;
  InProcessMessagingCenter center_{log_, 1000};
};

TEST_F(InProcessMessagingCenterTest, CentersAreToldApart) {
  center_.setHandler("one", "get", [](const Dictionary*) { return Dictionary({{"from", 1}}); });
  center_.setHandler("two", "get", [](const Dictionary*) { return Dictionary({{"from", 2}}); });
  EXPECT_EQ(center_.sendMessageAndReceiveReplyName("two", "get", nullptr),
            Dictionary({{"from", 2}}));
  EXPECT_EQ(center_.sendMessageAndReceiveReplyName("three", "get", nullptr), std::nullopt);
}

TEST_F(InProcessMessagingCenterTest, AHandlerCanBeReplacedAndTakenAway) {
  center_.setHandler("center", "get", [](const Dictionary*) { return Dictionary({{"v", 1}}); });
  center_.setHandler("center", "get", [](const Dictionary*) { return Dictionary({{"v", 2}}); });
  EXPECT_EQ(send("get", {}), Dictionary({{"v", 2}}));
  center_.setHandler("center", "get", {});
  EXPECT_EQ(send("get", {}), std::nullopt);
  EXPECT_THAT(log_.lines(), IsEmpty());
}

TEST_F(InProcessMessagingCenterTest, ATooLargeRequestReachesNobody) {
  bool called = false;
  center_.setHandler("center", "save", [&](const Dictionary*) {
    called = true;
    return Dictionary();
  });
  EXPECT_EQ(send("save", Dictionary{{"data", Data(2000)}}), std::nullopt);
  EXPECT_FALSE(called);
  EXPECT_THAT(log_.lines(), ElementsAre(AllOf(HasSubstr("The message save"), HasSubstr("1000"))));
  EXPECT_EQ(send("save", Dictionary{{"data", Data(100)}}), Dictionary());
}

TEST_F(InProcessMessagingCenterTest, ATooLargeReplyIsNoReply) {
  center_.setHandler("center", "get", [](const Dictionary*) {
    return Dictionary({{"data", Data(2000)}});
  });
  EXPECT_EQ(send("get", {}), std::nullopt);
  EXPECT_THAT(log_.lines(), ElementsAre(HasSubstr("The reply to get was not sent")));
}

TEST_F(InProcessMessagingCenterTest, WhatNoMessageCanHoldIsNotSent) {
  center_.setHandler("center", "get", [](const Dictionary*) {
    return Dictionary({{"nothing", Value()}});
  });
  EXPECT_EQ(send("get", Dictionary{{"text", "\xff"}}), std::nullopt);
  EXPECT_EQ(send("get", {}), std::nullopt);
  EXPECT_THAT(log_.lines(), ElementsAre(HasSubstr("The message get was not sent"),
                                        HasSubstr("The reply to get was not sent")));
}

}  // namespace
}  // namespace zephyl::linux_host
