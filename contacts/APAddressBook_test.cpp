// Loading contacts: what is loaded, on which queue, and what a refusal tells.

#include "contacts/APAddressBook.h"

#include <optional>
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
using ::testing::StartsWith;

class APAddressBookTest : public ::testing::Test {
 protected:
  APAddressBookTest() {
    device_.people().setPeople({PersonBuilder(1, "Zoe", "Reed").phone("1"),
                                PersonBuilder(2, "Ann", "Reed").phone("2"),
                                PersonBuilder(3, "Bob", "Ash")});
  }

  APAddressBook::Completion writing() {
    return [this](const APAddressBook::Contacts& contacts, const NSError* error) {
      ++calls_;
      contacts_ = contacts;
      error_ = error == nullptr ? std::nullopt : std::optional(*error);
      onMain_ = device_.dispatch().isMainThread();
    };
  }
  void load(APAddressBook& book) {
    book.loadContacts(writing());
    device_.dispatch().runAll();
  }
  std::vector<std::string> firstNames() {
    std::vector<std::string> names;
    if (contacts_ != nullptr) {
      for (const APContactRef& contact : *contacts_) {
        names.push_back(contact->firstName());
      }
    }
    return names;
  }

  fake::Device device_;
  int calls_ = 0;
  bool onMain_ = false;
  APAddressBook::Contacts contacts_;
  std::optional<NSError> error_;
};

TEST_F(APAddressBookTest, ByDefaultNamesAndPhonesAreReadInTheSystemsOrder) {
  APAddressBook book;
  EXPECT_EQ(book.fieldsMask(), 11U);
  load(book);
  EXPECT_EQ(calls_, 1);
  EXPECT_EQ(error_, std::nullopt);
  EXPECT_THAT(firstNames(), ElementsAre("Zoe", "Ann", "Bob"));
  EXPECT_THAT((*contacts_)[1]->phones(), ElementsAre("2"));
  EXPECT_EQ((*contacts_)[1]->fieldMask(), 11U);
  EXPECT_EQ((*contacts_)[1]->compositeName(), "");
}

TEST_F(APAddressBookTest, TheQueueOfALoaderIsItsOwn) {
  const APAddressBook first;
  const APAddressBook second;
  const auto labels = device_.dispatch().serialQueueLabels();
  ASSERT_EQ(labels.size(), 2U);
  EXPECT_NE(labels[0], labels[1]);
  for (const std::string& label : labels) {
    EXPECT_THAT(label, StartsWith("com.vantor.zephyls.contacts."));
    EXPECT_EQ(label.find_first_not_of("-0123456789", label.rfind('.') + 1), std::string::npos);
  }
}

TEST_F(APAddressBookTest, PeopleAreReadInTheBackgroundAndHandedOverOnTheMainQueue) {
  APAddressBook book;
  bool filteredOnMain = true;
  book.setFilterBlock([&](const APContact&) {
    filteredOnMain = device_.dispatch().isMainThread();
    return true;
  });
  book.loadContacts(writing());
  EXPECT_EQ(device_.people().copies(), 0);
  EXPECT_TRUE(device_.dispatch().runOneGlobal());  // access is granted
  EXPECT_EQ(device_.people().copies(), 0);
  EXPECT_TRUE(device_.dispatch().runOneGlobal());  // on the loader's queue
  EXPECT_EQ(device_.people().copies(), 1);
  EXPECT_FALSE(filteredOnMain);
  EXPECT_EQ(calls_, 0);
  device_.dispatch().runMain();
  EXPECT_EQ(calls_, 1);
  EXPECT_TRUE(onMain_);
}

TEST_F(APAddressBookTest, PicturesAreLookedAtInTheBackground) {
  std::vector<bool> onMain;
  device_.people().setPeople({PersonBuilder(1, "Ann").thumbnail([&] {
    onMain.push_back(device_.dispatch().isMainThread());
    return std::make_shared<const std::vector<std::uint8_t>>(fake::fakePicture(1, 1));
  })});
  APAddressBook book;
  book.setFieldsMask(APContactFieldThumbnail);
  load(book);
  EXPECT_TRUE(contacts_->front()->hasThumbnail());
  EXPECT_THAT(onMain, ElementsAre(false));
}

TEST_F(APAddressBookTest, AnotherQueueMayBeNamed) {
  APAddressBook book;
  const auto queue = device_.dispatch().makeSerialQueue("com.example.mine");
  onMain_ = true;
  book.loadContactsOnQueue(queue, writing());
  device_.dispatch().runGlobal();
  EXPECT_EQ(calls_, 1);
  EXPECT_FALSE(onMain_);
  EXPECT_EQ(device_.dispatch().waitingMain(), 0U);
}

TEST_F(APAddressBookTest, ACompletionIsNotNeeded) {
  APAddressBook book;
  book.loadContacts(nullptr);
  device_.dispatch().runAll();
  EXPECT_EQ(device_.people().copies(), 1);
}

TEST_F(APAddressBookTest, TheFilterKeepsThoseForWhomItSaysSo) {
  APAddressBook book;
  book.setFilterBlock([](const APContact& contact) { return !contact.phones().empty(); });
  load(book);
  EXPECT_THAT(firstNames(), ElementsAre("Zoe", "Ann"));
  book.setFilterBlock([](const APContact&) { return false; });
  load(book);
  ASSERT_NE(contacts_, nullptr);
  EXPECT_THAT(*contacts_, IsEmpty());
  EXPECT_EQ(error_, std::nullopt);
}

TEST_F(APAddressBookTest, SortDescriptorsOrderWhatIsKept) {
  using Descriptor = NSSortDescriptor<APContact>;
  APAddressBook book;
  book.setSortDescriptors({Descriptor::sortDescriptorWithKey(&APContact::lastName, true),
                           Descriptor::sortDescriptorWithKey(&APContact::firstName, false)});
  load(book);
  EXPECT_THAT(firstNames(), ElementsAre("Bob", "Zoe", "Ann"));
  book.setSortDescriptors({Descriptor::sortDescriptorWithKey(&APContact::lastName, false)});
  load(book);
  EXPECT_THAT(firstNames(), ElementsAre("Zoe", "Ann", "Bob"));
}

TEST_F(APAddressBookTest, WhatIsSetAfterTheCallIsForTheNextLoad) {
  APAddressBook book;
  book.loadContacts(writing());
  book.setFieldsMask(APContactFieldLastName);
  book.setFilterBlock([](const APContact&) { return false; });
  book.setSortDescriptors(
      {NSSortDescriptor<APContact>::sortDescriptorWithKey(&APContact::firstName, true)});
  device_.dispatch().runAll();
  EXPECT_THAT(firstNames(), ElementsAre("Zoe", "Ann", "Bob"));
  EXPECT_EQ(contacts_->front()->fieldMask(), 11U);
}

TEST_F(APAddressBookTest, ARefusalIsToldWithTheSystemsErrorAndWithoutContacts) {
  device_.people().setAuthorizationStatus(ABAuthorizationStatus::kDenied);
  device_.people().setAccessError(NSError("theirs", 9));
  APAddressBook book;
  load(book);
  EXPECT_EQ(calls_, 1);
  EXPECT_EQ(contacts_, nullptr);
  EXPECT_EQ(error_, NSError("theirs", 9));
  EXPECT_EQ(device_.people().copies(), 0);
  EXPECT_TRUE(onMain_);
}

TEST_F(APAddressBookTest, ARefusalWithoutAReasonIsAnErrorAllTheSame) {
  device_.people().setAuthorizationStatus(ABAuthorizationStatus::kRestricted);
  device_.people().setAccessError(std::nullopt);
  APAddressBook book;
  load(book);
  EXPECT_EQ(contacts_, nullptr);
  ASSERT_TRUE(error_);
  EXPECT_EQ(error_->domain(), ABAddressBookErrorDomain);
}

TEST_F(APAddressBookTest, AccessIsKnownOnceTheSystemHasAsked) {
  using Status = ABAuthorizationStatus;
  const auto access = [&](Status status) {
    device_.people().setAuthorizationStatus(status);
    return static_cast<int>(APAddressBook::access());
  };
  EXPECT_EQ(access(Status::kNotDetermined), 0);
  EXPECT_EQ(access(Status::kAuthorized), 1);
  EXPECT_EQ(access(Status::kDenied), 2);
  EXPECT_EQ(access(Status::kRestricted), 2);
  device_.people().setAuthorizationStatus(Status::kNotDetermined);
  APAddressBook book;
  load(book);
  EXPECT_EQ(APAddressBook::access(), APAddressBookAccess::kGranted);
  EXPECT_NE(contacts_, nullptr);
}

TEST_F(APAddressBookTest, ALoadGoesOnWhenTheLoaderIsGone) {
  {
    APAddressBook book;
    book.loadContacts(writing());
  }
  device_.dispatch().runAll();
  EXPECT_THAT(firstNames(), ElementsAre("Zoe", "Ann", "Bob"));
}

TEST_F(APAddressBookTest, WhatTheCompletionHoldsIsLetGoOfOnItsQueue) {
  std::optional<bool> releasedOnMain;
  {
    const std::shared_ptr<int> held(new int, [&](const int* number) {
      releasedOnMain = device_.dispatch().isMainThread();
      delete number;
    });
    APAddressBook().loadContacts([held](const APAddressBook::Contacts&, const NSError*) {});
  }
  device_.dispatch().runGlobal();
  EXPECT_EQ(releasedOnMain, std::nullopt);
  device_.dispatch().runMain();
  EXPECT_EQ(releasedOnMain, true);
}

}  // namespace
}  // namespace zephyl
