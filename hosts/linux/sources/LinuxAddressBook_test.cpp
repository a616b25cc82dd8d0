// What the address book of Linux says where people could not be read. What every address book does
// is in hosts/contract.

#include "hosts/linux/sources/LinuxAddressBook.h"

#include <memory>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "hosts/fake/Device.h"

namespace zephyl::linux_host {
namespace {

class LinuxAddressBookAccess : public ::testing::Test {
 protected:
  static ABPersonRef somebody() { return std::make_shared<const ABPerson>(); }
  // The reason of a refusal; nothing when access is granted.
  std::optional<std::string> refusal() {
    std::optional<std::string> reason = "no answer";
    book_->requestAccessWithCompletion([&](bool granted, const NSError* error) {
      EXPECT_EQ(granted, error == nullptr);
      reason = error == nullptr ? std::nullopt : std::optional(error->localizedDescription());
    });
    device_.dispatch().runAll();
    return reason;
  }

  fake::Device device_;
  std::shared_ptr<LinuxAddressBook> book_ =
      std::make_shared<LinuxAddressBook>(std::vector<ABPersonRef>());
};

TEST_F(LinuxAddressBookAccess, WithoutSourcesItIsEmptyAndOpen) {
  EXPECT_EQ(refusal(), std::nullopt);
}

TEST_F(LinuxAddressBookAccess, WhenNothingCouldBeReadTheErrorNamesTheFile) {
  book_->setPeople({}, {"/people.vcf: it cannot be read", "/other: neither"});
  EXPECT_EQ(refusal(), "/people.vcf: it cannot be read");
  EXPECT_EQ(book_->authorizationStatus(), ABAuthorizationStatus::kDenied);
  book_->setPeople({somebody()});
  EXPECT_EQ(refusal(), std::nullopt);
  EXPECT_EQ(book_->authorizationStatus(), ABAuthorizationStatus::kAuthorized);
}

TEST_F(LinuxAddressBookAccess, WhoCouldBeReadIsThereInSpiteOfOthers) {
  book_->setPeople({somebody()}, {"/other: it cannot be read"});
  EXPECT_EQ(refusal(), std::nullopt);
}

TEST_F(LinuxAddressBookAccess, WithoutAPlaceForThemNobodyIsAdded) {
  NSError error;
  EXPECT_EQ(book_->addPerson(ABPerson(), error), nullptr);
  EXPECT_EQ(error.domain(), ABAddressBookErrorDomain);
  EXPECT_TRUE(book_->copyArrayOfAllPeople().empty());
}

TEST_F(LinuxAddressBookAccess, TheOrderIsTheOneSet) {
  book_->setSortOrdering(ABPersonSortOrdering::kByFirstName);
  EXPECT_EQ(book_->personGetSortOrdering(), ABPersonSortOrdering::kByFirstName);
}

}  // namespace
}  // namespace zephyl::linux_host
