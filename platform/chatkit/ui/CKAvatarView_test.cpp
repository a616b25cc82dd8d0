// Who a conversation is with, as a disc.

#include "platform/chatkit/ui/CKAvatarView.h"

#include <memory>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "platform/uikit/text/UIImageView.h"
#include "platform/uikit/text/UILabel.h"

#include "hosts/fake/Conversations.h"
#include "hosts/fake/Device.h"
#include "hosts/fake/uikit/FakePng.h"

namespace zephyl {
namespace {

class Avatar : public ::testing::Test {
 protected:
  static CKConversationRef named(std::string name, std::vector<IMHandle> handles) {
    CKConversation::Facts facts;
    facts.guid = name;
    facts.name = std::move(name);
    facts.isGroupConversation = handles.size() > 1;
    facts.handles = std::move(handles);
    return std::make_shared<CKConversation>(std::move(facts));
  }
  static Data png() { return fake::fakePicture(4, 4); }
  // Counts how often the picture is read.
  ABPersonRef personWithPicture(std::int32_t recordID, const Data& file) {
    auto person = std::make_shared<ABPerson>();
    person->recordID = recordID;
    person->thumbnailImage = [this, file]() -> ABImageData {
      ++reads_;
      return file.empty() ? nullptr : std::make_shared<const std::vector<std::uint8_t>>(file);
    };
    return person;
  }
  void settle() { device_.dispatch().runAll(); }

  fake::Device device_;
  int reads_ = 0;
  std::shared_ptr<CKContactPictures> pictures_ = std::make_shared<CKContactPictures>();
  std::shared_ptr<CKAvatarView> avatar_ = std::make_shared<CKAvatarView>(CGRectMake(0, 0, 45, 45));
};

TEST_F(Avatar, InitialsAreOfTheFirstAndTheLastWordWithALetter) {
  const std::pair<const char*, const char*> kCases[] = {
      {"Robin Vale", "RV"},
      {"Robin", "R"},
      {"Robin von der Vale", "RV"},
      {"Äda Öz", "ÄÖ"},
      {"田中 太郎", "田太"},
      {"+1 555 0100", ""},
      {"", ""},
      {"  Robin  (2) ", "R"},
      {"\xff\xfe x", "x"},
      {"ليلى النعناع", "ل"},
      {"E\u0301lise Vale", "E\u0301V"},
      {"👨‍👩‍👧 Vale", "👨‍👩‍👧V"},
      {"🇩🇪🇫🇷", "🇩🇪"},
      {"Robin 👍🏽!", "R👍🏽"}};
  for (const auto& [name, initials] : kCases) {
    EXPECT_EQ(CKAvatarView::initialsOfName(name), initials) << name;
  }
}

TEST_F(Avatar, OneWithoutAPictureIsInitials) {
  avatar_->setConversation(named("Robin Vale", {fake::known(1)}), pictures_);
  EXPECT_EQ(avatar_->initials(), "RV");
  EXPECT_EQ(avatar_->picture(), nullptr);
}

TEST_F(Avatar, AGroupHasNoInitials) {
  avatar_->setConversation(named("Robin Vale", {fake::known(1), fake::known(2)}), pictures_);
  EXPECT_EQ(avatar_->initials(), "");
}

TEST_F(Avatar, AKnownPersonsPictureComesFromTheBackground) {
  device_.people().setPeople({personWithPicture(1, png())});
  avatar_->setConversation(named("Robin Vale", {fake::known(1)}), pictures_);
  EXPECT_EQ(avatar_->picture(), nullptr);
  EXPECT_EQ(reads_, 0);
  settle();
  EXPECT_NE(avatar_->picture(), nullptr);
  EXPECT_EQ(reads_, 1);
}

TEST_F(Avatar, APictureIsReadOnceForAll) {
  device_.people().setPeople({personWithPicture(1, png())});
  const auto robin = named("Robin Vale", {fake::known(1)});
  const auto other = std::make_shared<CKAvatarView>();
  avatar_->setConversation(robin, pictures_);
  other->setConversation(robin, pictures_);
  settle();
  EXPECT_EQ(other->picture(), avatar_->picture());
  other->setConversation(nullptr, pictures_);
  EXPECT_EQ(other->picture(), nullptr);
  other->setConversation(robin, pictures_);
  EXPECT_EQ(other->picture(), avatar_->picture());
  EXPECT_EQ(reads_, 1);
}

TEST_F(Avatar, AnotherRecordOfThePersonIsReadAnew) {
  device_.people().setPeople({personWithPicture(1, png())});
  const auto robin = named("Robin Vale", {fake::known(1)});
  avatar_->setConversation(robin, pictures_);
  settle();
  device_.people().setPeople({personWithPicture(1, png())});
  avatar_->setConversation(robin, pictures_);
  settle();
  EXPECT_EQ(reads_, 2);
}

TEST_F(Avatar, APictureThatComesLateIsNotAnothers) {
  device_.people().setPeople({personWithPicture(1, png())});
  avatar_->setConversation(named("Robin Vale", {fake::known(1)}), pictures_);
  avatar_->setConversation(named("Sam Oak", {fake::known(2)}), pictures_);
  settle();
  EXPECT_EQ(avatar_->picture(), nullptr);
  EXPECT_EQ(avatar_->initials(), "SO");
}

TEST_F(Avatar, APictureThatCannotBeReadIsNone) {
  device_.people().setPeople({personWithPicture(1, {}), personWithPicture(2, {'n', 'o'})});
  for (const std::int32_t who : {1, 2}) {
    avatar_->setConversation(named("Robin Vale", {fake::known(who)}), pictures_);
    settle();
    EXPECT_EQ(avatar_->picture(), nullptr);
  }
}

TEST_F(Avatar, ItMayGoBeforeItsPictureComes) {
  device_.people().setPeople({personWithPicture(1, png())});
  avatar_->setConversation(named("Robin Vale", {fake::known(1)}), pictures_);
  avatar_ = nullptr;
  settle();
  avatar_ = std::make_shared<CKAvatarView>();
  device_.people().setPeople({personWithPicture(3, png())});
  avatar_->setConversation(named("Robin Vale", {fake::known(3)}), pictures_);
  pictures_ = nullptr;
  settle();
  EXPECT_EQ(avatar_->picture(), nullptr);
}

}  // namespace
}  // namespace zephyl
