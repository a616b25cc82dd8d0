// What is read of a person into a contact, and what follows from it.

#include "contacts/APContact.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "contacts/testing/PersonBuilder.h"
#include "hosts/fake/Device.h"
#include "hosts/fake/uikit/FakePng.h"

namespace zephyl {
namespace {

using test::PersonBuilder;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr double kBorn = 1'000'000'000.0;

class APContactTest : public ::testing::Test {
 protected:
  // Somebody with a value in every field.
  static ABPersonRef everything() {
    return PersonBuilder(7, "Ann", "Reed")
        .named("Dr Ann Reed")
        .company("Reed & Co")
        .phone("+1 (555) 010-99", "_$!<Mobile>!$_")
        .phone("555 0200", "Boat")
        .email("ann@example.com")
        .email("reed@example.org")
        .address({"1 Long Lane", "Pickhurst", "KT", "90210", "Utopia", "ut"})
        .social({"twitter", "ann", "42", "https://example.com/ann"})
        .photo(test::imageOf(fake::fakePicture(3, 2)))
        .thumbnail(test::imageOf(fake::fakePicture(1, 1)))
        .with([](ABPerson& person) {
          person.middleName = "Mary";
          person.creationDate = kBorn;
          person.modificationDate = kBorn + 1;
        });
  }
  static APContactRef read(APContactField mask) {
    return APContact::initWithRecordRef(everything(), mask);
  }
  static APSocialNetworkType network(const std::string& service) {
    return APSocialProfile::initWithSocialDictionary({service, "", "", ""}).socialNetwork;
  }

  fake::Device device_;
};

TEST_F(APContactTest, EveryBitReadsItsField) {
  EXPECT_EQ(read(1)->firstName(), "Ann");
  EXPECT_EQ(read(2)->lastName(), "Reed");
  EXPECT_EQ(read(4)->company(), "Reed & Co");
  EXPECT_THAT(read(8)->phones(), ElementsAre("+1 (555) 010-99", "555 0200"));
  EXPECT_THAT(read(16)->emails(), ElementsAre("ann@example.com", "reed@example.org"));
  EXPECT_EQ(read(32)->photo()->file(), fake::fakePicture(3, 2));
  EXPECT_EQ(read(64)->thumbnail()->file(), fake::fakePicture(1, 1));
  EXPECT_THAT(read(128)->phonesWithLabels(), SizeIs(2));
  EXPECT_EQ(read(256)->compositeName(), "Dr Ann Reed");
  EXPECT_THAT(read(512)->addresses(), SizeIs(1));
  EXPECT_EQ(read(1024)->recordID(), 7);
  EXPECT_EQ(read(2048)->creationDate()->secondsSince1970(), kBorn);
  EXPECT_EQ(read(4096)->modificationDate()->secondsSince1970(), kBorn + 1);
  EXPECT_EQ(read(8192)->middleName(), "Mary");
  EXPECT_THAT(read(16384)->socialProfiles(), SizeIs(1));
}

// The fields that a contact has, by their bits.
APContactField fieldsOf(const APContact& contact) {
  APContactField fields = 0;
  const auto add = [&](APContactField field, bool isThere) { fields |= isThere ? field : 0; };
  add(1, !contact.firstName().empty());
  add(2, !contact.lastName().empty());
  add(4, !contact.company().empty());
  add(8, !contact.phones().empty());
  add(16, !contact.emails().empty());
  add(32, contact.photo() != nullptr);
  add(64, contact.thumbnail() != nullptr);
  add(128, !contact.phonesWithLabels().empty());
  add(256, !contact.compositeName().empty());
  add(512, !contact.addresses().empty());
  add(1024, contact.recordID().has_value());
  add(2048, contact.creationDate().has_value());
  add(4096, contact.modificationDate().has_value());
  add(8192, !contact.middleName().empty());
  add(16384, !contact.socialProfiles().empty());
  return fields;
}

TEST_F(APContactTest, AClearBitLeavesItsFieldOut) {
  for (APContactField mask = 1; mask <= 16384; mask <<= 1U) {
    EXPECT_EQ(fieldsOf(*read(mask)), mask);
    EXPECT_EQ(fieldsOf(*read(APContactFieldAll & ~mask)), 0x7FFFU & ~mask);
    EXPECT_EQ(read(mask)->fieldMask(), mask);
  }
  EXPECT_EQ(fieldsOf(*read(APContactFieldAll)), 0x7FFFU);
  EXPECT_EQ(fieldsOf(*read(0)), 0U);
}

TEST_F(APContactTest, APersonWithoutAnythingHasNothing) {
  const auto contact = APContact::initWithRecordRef(PersonBuilder(1).build(), APContactFieldAll);
  EXPECT_EQ(fieldsOf(*contact), APContactFieldRecordID);
  EXPECT_THAT(contact->sanitizedPhones(), IsEmpty());
  EXPECT_EQ(fieldsOf(*APContact::initWithRecordRef(nullptr, APContactFieldAll)), 0U);
}

TEST_F(APContactTest, PhonesArePairedWithTheirLocalizedLabels) {
  device_.files().put("/System/Library/Frameworks/UIKit.framework/de.lproj/UIKit.strings",
                      "\"mobile\" = \"Mobil\";");
  device_.processInfo().setPreferredLanguages({"de"});
  EXPECT_THAT(read(APContactFieldPhonesWithLabels)->phonesWithLabels(),
              ElementsAre(APPhoneWithLabel{"+1 (555) 010-99", "Mobil"},
                          APPhoneWithLabel{"555 0200", "Boat"}));
}

TEST_F(APContactTest, AnAddressHasItsSixParts) {
  EXPECT_EQ(read(APContactFieldAddresses)->addresses().front(),
            (APAddress{"1 Long Lane", "Pickhurst", "KT", "90210", "Utopia", "ut"}));
}

TEST_F(APContactTest, AServiceIsKnownByItsExactName) {
  EXPECT_EQ(network("facebook"), APSocialNetworkType::kFacebook);
  EXPECT_EQ(network("twitter"), APSocialNetworkType::kTwitter);
  EXPECT_EQ(network("linkedin"), APSocialNetworkType::kLinkedIn);
  for (const char* other : {"Facebook", "TWITTER", "LinkedIn", "twitter ", "myspace", ""}) {
    EXPECT_EQ(network(other), APSocialNetworkType::kUnknown) << other;
  }
  EXPECT_EQ(static_cast<int>(APSocialNetworkType::kFacebook), 1);
  EXPECT_EQ(static_cast<int>(APSocialNetworkType::kTwitter), 2);
  EXPECT_EQ(static_cast<int>(APSocialNetworkType::kLinkedIn), 3);
}

TEST_F(APContactTest, ASocialProfileHasItsTexts) {
  EXPECT_EQ(
      read(APContactFieldSocialProfiles)->socialProfiles().front(),
      (APSocialProfile{APSocialNetworkType::kTwitter, "ann", "42", "https://example.com/ann"}));
}

TEST_F(APContactTest, SanitizedPhonesAreDigitsInTheSameOrder) {
  const auto contact = APContact::initWithRecordRef(PersonBuilder(1, "A")
                                                        .phone("+1 (555) 010-99")
                                                        .phone("(555) 010-9999")
                                                        .phone("no digits")
                                                        .phone("\u0663\u0664 7")
                                                        .build(),
                                                    APContactFieldPhones);
  EXPECT_THAT(contact->sanitizedPhones(), ElementsAre("155501099", "5550109999", "", "7"));
}

TEST_F(APContactTest, ANameThatIsMissingIsTheCompositeOne) {
  const auto contact = APContact::initWithRecordRef(
      PersonBuilder(1, "Ann").named("Ann of Reed").build(), APContactFieldAll);
  EXPECT_EQ(contact->firstNameOrCompositeName(), "Ann");
  EXPECT_EQ(contact->lastNameOrCompositeName(), "Ann of Reed");
  const auto other =
      APContact::initWithRecordRef(PersonBuilder(1, "", "Reed").build(), APContactFieldAll);
  EXPECT_EQ(other->firstNameOrCompositeName(), "Reed");
  EXPECT_EQ(other->lastNameOrCompositeName(), "Reed");
}

TEST_F(APContactTest, LinkedContactsAreNeverThere) {
  EXPECT_EQ(read(APContactFieldAll)->linkedContacts(), nullptr);
}

TEST_F(APContactTest, APictureIsLookedAtOnceAndFetchedWhenItIsAskedFor) {
  int fetched = 0;
  auto bytes = std::make_shared<const std::vector<std::uint8_t>>(fake::fakePicture(4, 4));
  const PersonBuilder person = PersonBuilder(1, "A").thumbnail([&fetched, bytes] {
    ++fetched;
    return bytes;
  });
  static_cast<void>(APContact::initWithRecordRef(person, APContactFieldPhoto));
  EXPECT_EQ(fetched, 0);
  const auto contact = APContact::initWithRecordRef(person, APContactFieldAll);
  EXPECT_EQ(fetched, 1);
  EXPECT_EQ(bytes.use_count(), 3);  // here, and in the two functions that give it out
  EXPECT_TRUE(contact->hasThumbnail());
  EXPECT_FALSE(contact->hasPhoto());
  EXPECT_EQ(fetched, 1);
  EXPECT_NE(contact->thumbnail(), nullptr);
  EXPECT_EQ(contact->thumbnail(), contact->thumbnail());
  EXPECT_EQ(fetched, 2);
}

TEST_F(APContactTest, WhatIsNoPictureIsNone) {
  const auto contact = APContact::initWithRecordRef(PersonBuilder(1, "A")
                                                        .photo([] { return ABImageData(); })
                                                        .thumbnail(test::imageOf({}))
                                                        .build(),
                                                    APContactFieldAll);
  EXPECT_FALSE(contact->hasPhoto());
  EXPECT_EQ(contact->photo(), nullptr);
  EXPECT_FALSE(contact->hasThumbnail());
  EXPECT_EQ(contact->thumbnail(), nullptr);
  const auto other = APContact::initWithRecordRef(
      PersonBuilder(1, "A").thumbnail(test::imageOf({1, 2, 3})).build(), APContactFieldAll);
  EXPECT_FALSE(other->hasThumbnail());
  EXPECT_EQ(other->thumbnail(), nullptr);
}

TEST_F(APContactTest, APictureThatIsGoneWhenItIsAskedForIsNone) {
  auto bytes = std::make_shared<const std::vector<std::uint8_t>>(fake::fakePicture(4, 4));
  const auto contact = APContact::initWithRecordRef(
      PersonBuilder(1, "A").photo([&bytes] { return bytes; }).build(), APContactFieldPhoto);
  bytes = nullptr;
  EXPECT_TRUE(contact->hasPhoto());
  EXPECT_EQ(contact->photo(), nullptr);
}

TEST_F(APContactTest, WithoutAScreenWhatIsThereIsTakenForAPicture) {
  device_.setHasScreen(false);
  const auto contact = APContact::initWithRecordRef(
      PersonBuilder(1, "A").photo(test::imageOf({1})).thumbnail(test::imageOf({})).build(),
      APContactFieldAll);
  EXPECT_TRUE(contact->hasPhoto());
  EXPECT_FALSE(contact->hasThumbnail());
}

TEST_F(APContactTest, HundredsOfNumbersAndEndlessNamesAreRead) {
  PersonBuilder person(1, std::string(10'000, 'x'), "\xff\xfe");
  for (int i = 0; i < 500; ++i) {
    person.phone("+" + std::to_string(i));
  }
  const auto contact = APContact::initWithRecordRef(person.build(), APContactFieldAll);
  EXPECT_THAT(contact->phones(), SizeIs(500));
  EXPECT_EQ(contact->sanitizedPhones().back(), "499");
  EXPECT_EQ(contact->firstName().size(), 10'000U);
  EXPECT_EQ(contact->lastName(), "\xff\xfe");
}

}  // namespace
}  // namespace zephyl
