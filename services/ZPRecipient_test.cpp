#include "services/ZPRecipient.h"

#include <cstdint>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "hosts/fake/Conversations.h"
#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

class ZPRecipientTest : public ::testing::Test {
 protected:
  static ZPRecipient of(const IMHandle& handle) { return ZPRecipient(CKEntity(handle, "Ann")); }

  fake::Device device_;
};

TEST_F(ZPRecipientTest, TheNumberIsKeptPlainAndAsTheSystemShowsIt) {
  device_.phoneFormatting().setFormat("+1 (555) 010-9999", "+1 555-010-9999");
  const ZPRecipient recipient = of(fake::unknown("+1 (555) 010-9999"));
  EXPECT_EQ(recipient.plainPhoneNumber(), "+15550109999");
  EXPECT_EQ(recipient.forMatterPhoneNumber(), "+1 555-010-9999");
}

TEST_F(ZPRecipientTest, ANumberThatTheSystemCannotShowHasNoForm) {
  EXPECT_EQ(of(fake::unknown("22000")).forMatterPhoneNumber(), "");
}

TEST_F(ZPRecipientTest, AnEmailAddressKeepsEveryCharacter) {
  EXPECT_EQ(of(fake::unknown("ken.doh@example.com")).plainPhoneNumber(), "ken.doh@example.com");
}

TEST_F(ZPRecipientTest, TheNameIsThatOfTheParticipant) {
  EXPECT_EQ(of(fake::unknown("22000")).name(), "Ann");
  EXPECT_EQ(ZPRecipient(CKEntity(fake::unknown("22000"), "")).name(), "");
}

TEST_F(ZPRecipientTest, TheContactIsTheRecordIdIfTheHandleAnswersWithOne) {
  EXPECT_EQ(of(fake::known(13)).contactId(), 13);
  EXPECT_EQ(of(fake::known(0)).contactId(), 0);
  EXPECT_EQ(of(fake::known(-7)).contactId(), -7);
  EXPECT_EQ(of(fake::known(std::numeric_limits<std::int32_t>::min())).contactId(), -2147483648LL);
  EXPECT_EQ(of(fake::unknown("22000")).contactId(), -1);
  EXPECT_EQ(of(IMHandle::withContact("22000", /*isContact=*/true, "ABC")).contactId(), -1);
}

TEST_F(ZPRecipientTest, ANewRecordIsNotSelected) {
  EXPECT_FALSE(of(fake::known(13)).isSelected());
}

TEST_F(ZPRecipientTest, EveryPropertyCanBeChanged) {
  ZPRecipient recipient = of(fake::known(13));
  recipient.setName("Bo");
  recipient.setPlainPhoneNumber("1");
  recipient.setForMatterPhoneNumber("2");
  recipient.setContactId(std::int64_t{1} << 40U);
  recipient.setIsSelected(true);
  EXPECT_EQ(recipient.name(), "Bo");
  EXPECT_EQ(recipient.plainPhoneNumber(), "1");
  EXPECT_EQ(recipient.forMatterPhoneNumber(), "2");
  EXPECT_EQ(recipient.contactId(), std::int64_t{1} << 40U);
  EXPECT_TRUE(recipient.isSelected());
}

TEST(RecipientsTest, AConversationGivesItsParticipantsInOrderWithTheirNames) {
  CKConversation::Facts facts;
  facts.handles = {fake::unknown("b@example.com"), fake::known(13), fake::unknown("22000")};
  facts.handleNames = {"Bo", ""};
  const auto recipients = CKConversation(facts).recipients();
  ASSERT_EQ(recipients.size(), 3U);
  EXPECT_EQ(recipients[0].handle().displayID(), "b@example.com");
  EXPECT_EQ(recipients[0].fullName(), "Bo");
  EXPECT_EQ(recipients[1].handle().personRecordID(), 13);
  EXPECT_EQ(recipients[1].fullName(), recipients[1].handle().displayID());
  EXPECT_EQ(recipients[2].fullName(), "22000");
  EXPECT_TRUE(CKConversation({}).recipients().empty());
}

}  // namespace
}  // namespace zephyl
