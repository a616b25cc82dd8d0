#include "apps/common/ReadBeforeSave.h"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/foundation/Dictionary.h"

#include "hosts/fake/FakeSystem.h"
#include "model/ZephylKeys.h"

namespace zephyl::app {
namespace {

// Answers everything while its owner is there.
class Owner : public CPDistributedMessagingCenter {
 public:
  std::optional<Dictionary> sendMessageAndReceiveReplyName(
      const std::string& /*center*/, const std::string& name,
      const Dictionary* /*userInfo*/) override {
    asked_.push_back(name);
    return isThere_ ? std::optional(reply_) : std::nullopt;
  }

  bool isThere_ = true;
  Dictionary reply_;
  std::vector<std::string> asked_;
};

class ReadBeforeSaveTest : public ::testing::Test {
 protected:
  bool send(const char* name, const char* center = kZephylsMessageCenter) {
    return center_.sendMessageAndReceiveReplyName(center, name, nullptr).has_value();
  }

  fake::FakeSystemLog log_;
  std::unique_ptr<Owner> made_ = std::make_unique<Owner>();
  Owner& owner_ = *made_;
  ReadBeforeSave center_{std::move(made_), log_};
};

TEST_F(ReadBeforeSaveTest, WithoutAReplyToTheRequestNothingIsSaved) {
  owner_.isThere_ = false;
  EXPECT_FALSE(send(kGetGroupsMessage));
  owner_.isThere_ = true;
  EXPECT_FALSE(send(kSaveGroupsMessage));
  EXPECT_EQ(owner_.asked_, std::vector<std::string>{kGetGroupsMessage});
  EXPECT_EQ(log_.lines().size(), 1U);
}

TEST_F(ReadBeforeSaveTest, OnceTheGroupsWereReadTheyAreSaved) {
  EXPECT_TRUE(send(kSaveGroupsMessage));
  owner_.isThere_ = false;
  EXPECT_FALSE(send(kGetGroupsMessage));
  owner_.isThere_ = true;
  EXPECT_TRUE(send(kGetGroupsMessage));
  EXPECT_TRUE(send(kSaveGroupsMessage));
  EXPECT_TRUE(log_.lines().empty());
}

TEST_F(ReadBeforeSaveTest, AReplyWithSomethingElseIsNone) {
  owner_.reply_ = Dictionary{{kServiceMessageData, "text"}};
  EXPECT_TRUE(send(kGetGroupsMessage));
  EXPECT_FALSE(send(kSaveGroupsMessage));
  owner_.reply_ = Dictionary{{kServiceMessageData, Array{}}};
  EXPECT_TRUE(send(kGetGroupsMessage));
  EXPECT_TRUE(send(kSaveGroupsMessage));
}

TEST_F(ReadBeforeSaveTest, OtherMessagesAndCentersAreLeftAlone) {
  owner_.isThere_ = false;
  EXPECT_FALSE(send(kGetGroupsMessage));
  EXPECT_FALSE(send(kGetGroupsMessage, "another"));
  owner_.isThere_ = true;
  EXPECT_TRUE(send(kSaveImageMessage));
  EXPECT_TRUE(send(kSaveGroupsMessage, "another"));
  EXPECT_TRUE(send(kGetGroupsMessage, "another"));
  EXPECT_FALSE(send(kSaveGroupsMessage));
}

}  // namespace
}  // namespace zephyl::app
