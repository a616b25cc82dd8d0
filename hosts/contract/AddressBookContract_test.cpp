#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "platform/addressbook/ABAddressBook.h"
#include "platform/foundation/Dispatch.h"

#include "hosts/contract/DeviceUnderTest.h"

namespace zephyl::contract {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AddressBookContract : public ContractTest {
 protected:
  struct Answer {
    bool granted = false;
    std::optional<NSError> error;
  };

  static ABPersonRef person(std::int32_t recordID, const std::string& lastName) {
    auto made = std::make_shared<ABPerson>();
    made->recordID = recordID;
    made->lastName = lastName;
    return made;
  }
  static void told(ABAddressBook& book, void* context) {
    auto& self = *static_cast<AddressBookContract*>(context);
    EXPECT_EQ(&book, self.host().addressBook().get());
    EXPECT_TRUE(self.host().dispatch().isMainThread());
    ++self.changes_;
  }
  static void toldToo(ABAddressBook& book, void* context) {
    auto& self = *static_cast<AddressBookContract*>(context);
    ++self.changes_;
    book.unregisterExternalChangeCallback(told, &self);
  }

  ABAddressBook& book() { return *host().addressBook(); }
  Answer request() {
    std::vector<Answer> answers;
    book().requestAccessWithCompletion([&](bool granted, const NSError* error) {
      answers.push_back({granted, error == nullptr ? std::nullopt : std::optional(*error)});
    });
    device().settle();
    EXPECT_EQ(answers.size(), 1U);
    return answers.empty() ? Answer() : answers.front();
  }
  std::vector<std::string> names() {
    std::vector<std::string> names;
    for (const ABPersonRef& each : book().copyArrayOfAllPeople()) {
      names.push_back(each->lastName);
    }
    return names;
  }

  int changes_ = 0;
};
ZEPHYLS_CONTRACT(AddressBookContract);

TEST_P(AddressBookContract, PeopleKeepTheirOrderAndAreFoundByRecordId) {
  device().setPeople({person(5, "B"), person(3, "A")});
  EXPECT_THAT(names(), ElementsAre("B", "A"));
  ASSERT_NE(book().personWithRecordID(3), nullptr);
  EXPECT_EQ(book().personWithRecordID(3)->lastName, "A");
  EXPECT_EQ(book().personWithRecordID(4), nullptr);
}

TEST_P(AddressBookContract, AccessIsGrantedWithoutAnErrorAndNotInsideTheCall) {
  EXPECT_EQ(book().authorizationStatus(), ABAuthorizationStatus::kAuthorized);
  bool answered = false;
  book().requestAccessWithCompletion([&](bool, const NSError*) { answered = true; });
  device().settle();
  EXPECT_TRUE(answered);
  const Answer answer = request();
  EXPECT_TRUE(answer.granted);
  EXPECT_EQ(answer.error, std::nullopt);
}

TEST_P(AddressBookContract, AccessThatIsDeniedOrRestrictedIsRefusedWithAnError) {
  for (const auto status : {ABAuthorizationStatus::kDenied, ABAuthorizationStatus::kRestricted}) {
    device().setAuthorizationStatus(status);
    EXPECT_EQ(book().authorizationStatus(), status);
    const Answer answer = request();
    EXPECT_FALSE(answer.granted);
    ASSERT_TRUE(answer.error);
    EXPECT_EQ(answer.error->domain(), ABAddressBookErrorDomain);
  }
}

TEST_P(AddressBookContract, AskingForAccessSettlesWhetherThereIs) {
  device().setAuthorizationStatus(ABAuthorizationStatus::kNotDetermined);
  EXPECT_EQ(book().authorizationStatus(), ABAuthorizationStatus::kNotDetermined);
  EXPECT_TRUE(request().granted);
  EXPECT_EQ(book().authorizationStatus(), ABAuthorizationStatus::kAuthorized);
}

TEST_P(AddressBookContract, AChangeIsAnnouncedLaterOnTheMainQueue) {
  book().registerExternalChangeCallback(told, this);
  device().setPeople({person(1, "A")});
  EXPECT_EQ(changes_, 0);
  device().settle();
  EXPECT_EQ(changes_, 1);
}

TEST_P(AddressBookContract, TheSameRegistrationCountsOnceAndEndsAtOnce) {
  book().registerExternalChangeCallback(told, this);
  book().registerExternalChangeCallback(told, this);
  device().setPeople({});
  device().settle();
  EXPECT_EQ(changes_, 1);
  device().setPeople({});
  book().unregisterExternalChangeCallback(told, this);
  device().settle();
  EXPECT_EQ(changes_, 1);
}

TEST_P(AddressBookContract, ACallbackMayTakeAnotherOneBackThatIsYetToCome) {
  book().registerExternalChangeCallback(toldToo, this);
  book().registerExternalChangeCallback(told, this);
  device().setPeople({});
  device().settle();
  EXPECT_EQ(changes_, 1);
}

TEST_P(AddressBookContract, WhoIsAddedGetsARecordIdAndIsAnnounced) {
  device().setPeople({person(7, "A")});
  book().registerExternalChangeCallback(told, this);
  NSError error;
  const ABPersonRef added = book().addPerson(*person(0, "B"), error);
  ASSERT_NE(added, nullptr);
  EXPECT_NE(added->recordID, 7);
  EXPECT_GT(added->recordID, 0);
  EXPECT_EQ(book().personWithRecordID(added->recordID)->lastName, "B");
  EXPECT_THAT(names(), ElementsAre("A", "B"));
  device().settle();
  EXPECT_EQ(changes_, 1);
}

TEST_P(AddressBookContract, PeopleAreSortedByLastNameUnlessTheUserWantsOtherwise) {
  EXPECT_EQ(book().personGetSortOrdering(), ABPersonSortOrdering::kByLastName);
  EXPECT_THAT(names(), IsEmpty());
}

}  // namespace
}  // namespace zephyl::contract
