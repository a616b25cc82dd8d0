// The contacts of the whole process: who is among them, and the notification of changes.

#include "contacts/ZLAddressBook.h"

#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/foundation/NSNotificationCenter.h"

#include "contacts/testing/PersonBuilder.h"
#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

using test::PersonBuilder;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ZLAddressBookTest : public ::testing::Test {
 protected:
  ZLAddressBookTest() {
    NSNotificationCenter::defaultCenter()->addObserver(this, "ZLAddressBookDidChangeNotification",
                                                       [this](const NSNotification& notification) {
                                                         EXPECT_TRUE(notification.userInfo.empty());
                                                         ++notifications_;
                                                       });
  }
  ~ZLAddressBookTest() override { NSNotificationCenter::defaultCenter()->removeObserver(this); }
  ZLAddressBookTest(const ZLAddressBookTest&) = delete;
  ZLAddressBookTest& operator=(const ZLAddressBookTest&) = delete;

  void load() {
    ZLAddressBook::sharedInstance()->loadContacts([this](bool success, const NSError* error) {
      EXPECT_TRUE(device_.dispatch().isMainThread());
      EXPECT_EQ(success, error == nullptr);
      results_.push_back(success ? "yes" : error->domain());
    });
    device_.dispatch().runAll();
  }
  static std::vector<std::string> names() {
    std::vector<std::string> names;
    for (const APContactRef& contact : *ZLAddressBook::sharedInstance()->contacts()) {
      names.push_back(contact->compositeName());
    }
    return names;
  }

  fake::Device device_;
  int notifications_ = 0;
  std::vector<std::string> results_;
};

TEST_F(ZLAddressBookTest, ThereIsOneForTheProcess) {
  std::shared_ptr<ZLAddressBook> other;
  std::thread([&] { other = ZLAddressBook::sharedInstance(); }).join();
  EXPECT_EQ(ZLAddressBook::sharedInstance(), other);
  EXPECT_EQ(other->contacts(), nullptr);
  EXPECT_EQ(device_.people().registrations(), 0);
}

TEST_F(ZLAddressBookTest, EverybodyWithANameIsLoadedInTheSystemsOrder) {
  device_.people().setPeople({PersonBuilder(4, "Zoe"), PersonBuilder(3).phone("555"),
                              PersonBuilder(2).company("Reed & Co"), PersonBuilder(1, "", "Ash")});
  load();
  EXPECT_THAT(results_, ElementsAre("yes"));
  EXPECT_THAT(names(), ElementsAre("Zoe", "Reed & Co", "Ash"));
  EXPECT_EQ(ZLAddressBook::sharedInstance()->contacts()->front()->fieldMask(), 1883U);
}

TEST_F(ZLAddressBookTest, ARefusalLeavesTheContactsAsTheyAre) {
  device_.people().setPeople({PersonBuilder(1, "Ann")});
  load();
  device_.people().setPeople({PersonBuilder(1, "Ann"), PersonBuilder(2, "Bob")});
  device_.people().setAuthorizationStatus(ABAuthorizationStatus::kDenied);
  load();
  EXPECT_THAT(results_, ElementsAre("yes", ABAddressBookErrorDomain));
  EXPECT_THAT(names(), ElementsAre("Ann"));
  EXPECT_EQ(device_.dispatch().waitingGlobal(), 0U);
}

TEST_F(ZLAddressBookTest, ALoadReplacesTheContacts) {
  device_.people().setPeople({PersonBuilder(1, "Ann")});
  load();
  const auto before = ZLAddressBook::sharedInstance()->contacts();
  device_.people().setPeople({});
  load();
  EXPECT_THAT(names(), IsEmpty());
  EXPECT_EQ(before->size(), 1U);
}

TEST_F(ZLAddressBookTest, ChangesArePostedFromTheFirstLoadOn) {
  device_.people().announceExternalChange();
  device_.dispatch().runAll();
  EXPECT_EQ(notifications_, 0);
  load();
  load();
  EXPECT_EQ(notifications_, 0);
  EXPECT_EQ(device_.people().registrations(), 1);
  device_.people().announceExternalChange();
  device_.dispatch().runAll();
  EXPECT_EQ(notifications_, 1);
}

TEST_F(ZLAddressBookTest, ChangesArePostedAlsoWhenAccessIsRefused) {
  device_.people().setAuthorizationStatus(ABAuthorizationStatus::kDenied);
  load();
  device_.people().announceExternalChange();
  device_.dispatch().runAll();
  EXPECT_EQ(notifications_, 1);
}

TEST_F(ZLAddressBookTest, NothingIsPostedOnceTheProcessHasEnded) {
  load();
  device_.people().announceExternalChange();
  device_.restartProcess();
  device_.dispatch().runAll();
  EXPECT_EQ(notifications_, 0);
  EXPECT_EQ(ZLAddressBook::sharedInstance()->contacts(), nullptr);
}

}  // namespace
}  // namespace zephyl
