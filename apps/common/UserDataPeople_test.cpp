// The user's people on a device of Linux: adding one, and changes of the files.

#include <atomic>
#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/addressbook/ABAddressBook.h"

#include "apps/common/UserData.h"
#include "contacts/ZLAddressBook.h"
#include "hosts/contract/TemporaryFolder.h"
#include "hosts/linux/LinuxDevice.h"
#include "hosts/linux/LinuxDispatch.h"

namespace zephyl::app {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string card(const std::string& first, const std::string& last, const std::string& phone) {
  return "BEGIN:VCARD\nVERSION:3.0\nN:" + last + ";" + first + ";;;\nFN:" + first + " " + last +
         "\nTEL:" + phone + "\nEND:VCARD\n";
}

class UserDataPeople : public ::testing::Test {
 protected:
  UserDataPeople() {
    folder_.put("/people.vcf", card("Ann", "Reed", "1") + card("Bob", "Ash", "2"));
    std::filesystem::create_directory(folder_.path() + "/device");
    places_.contacts = {folder_.path() + "/people.vcf"};
    places_.device = folder_.path() + "/device";
  }
  ~UserDataPeople() override { stop(); }
  UserDataPeople(const UserDataPeople&) = delete;
  UserDataPeople& operator=(const UserDataPeople&) = delete;

  void start() {
    data_.emplace(places_,
                  UserData::Reports{[this](const std::string& message) { bad_.push_back(message); },
                                    [](const std::string&, const std::vector<std::string>&) {}});
    data_->readPeople();
    linux_host::DeviceOptions options;
    options.deviceRoot = places_.device.string();
    data_->serveBy(options, {});
    device_.emplace(std::move(options));
    install(*device_);
  }
  void stop() {
    if (device_) {
      uninstall();
      device_.reset();
      data_.reset();
    }
  }
  ABAddressBook& book() { return *host().addressBook(); }
  std::vector<std::string> names() {
    std::vector<std::string> names;
    for (const ABPersonRef& person : book().copyArrayOfAllPeople()) {
      names.push_back(person->compositeName.value_or(""));
    }
    return names;
  }
  static ABPerson cid() {
    ABPerson person;
    person.firstName = "Cid";
    return person;
  }

  contract::TemporaryFolder folder_;
  Places places_;
  std::vector<std::string> bad_;
  std::optional<UserData> data_;
  std::optional<linux_host::LinuxDevice> device_;
};

TEST_F(UserDataPeople, WhoIsAddedIsReadWithTheOthersFromThenOn) {
  start();
  const std::string before = folder_.read("/people.vcf");
  NSError error;
  const ABPersonRef added = book().addPerson(cid(), error);
  ASSERT_NE(added, nullptr) << error.localizedDescription();
  EXPECT_THAT(names(), ElementsAre("Ann Reed", "Bob Ash", "Cid"));
  EXPECT_EQ(book().personWithRecordID(added->recordID), added);
  EXPECT_EQ(folder_.read("/people.vcf"), before);
  EXPECT_EQ(added->sourceFile, places_.addedPeople().string());
  const std::int32_t recordID = added->recordID;
  stop();
  start();
  EXPECT_THAT(names(), ElementsAre("Ann Reed", "Bob Ash", "Cid"));
  ASSERT_NE(book().personWithRecordID(recordID), nullptr);
  EXPECT_EQ(book().personWithRecordID(recordID)->firstName, "Cid");
}

TEST_F(UserDataPeople, WithoutSourcesTheAddedOnesAreThere) {
  places_.contacts.clear();
  start();
  NSError error;
  EXPECT_NE(book().addPerson(cid(), error), nullptr);
  EXPECT_THAT(names(), ElementsAre("Cid"));
}

TEST_F(UserDataPeople, WhenTheFileCannotBeWrittenNobodyIsAdded) {
  start();
  std::filesystem::create_directory(places_.addedPeople());
  NSError error;
  EXPECT_EQ(book().addPerson(cid(), error), nullptr);
  EXPECT_THAT(error.localizedDescription(), ::testing::HasSubstr(places_.addedPeople().string()));
  EXPECT_THAT(names(), ElementsAre("Ann Reed", "Bob Ash"));
}

TEST_F(UserDataPeople, WhoIsAddedWhileAnotherSourceFailsIsAddedOnceAndTheOthersStay) {
  start();
  const std::int32_t ann = book().copyArrayOfAllPeople().front()->recordID;
  std::filesystem::remove(folder_.path() + "/people.vcf");
  NSError error;
  const ABPersonRef added = book().addPerson(cid(), error);
  ASSERT_NE(added, nullptr) << error.localizedDescription();
  EXPECT_THAT(names(), ElementsAre("Ann Reed", "Bob Ash", "Cid"));
  EXPECT_EQ(book().copyArrayOfAllPeople().front()->recordID, ann);
  EXPECT_NE(added->recordID, ann);
  EXPECT_THAT(bad_, ElementsAre(::testing::HasSubstr("people.vcf")));
  // What failed is tried again, and who was added is the same then.
  folder_.put("/people.vcf", card("Dan", "Cole", "3"));
  data_->refreshPeople();
  EXPECT_THAT(names(), ElementsAre("Dan Cole", "Cid"));
  EXPECT_EQ(book().personWithRecordID(added->recordID)->guid, added->guid);
}

TEST_F(UserDataPeople, WhoCannotBeReadBackIsNotWrittenEither) {
  const std::string text = "SQLite format 3" + std::string(1, '\0') + "\n";
  folder_.put("/device/added-people.vcf", text);
  start();
  NSError error;
  EXPECT_EQ(book().addPerson(cid(), error), nullptr);
  EXPECT_THAT(error.localizedDescription(), ::testing::HasSubstr(places_.addedPeople().string()));
  EXPECT_EQ(folder_.read("/device/added-people.vcf"), text);
  EXPECT_THAT(names(), ElementsAre("Ann Reed", "Bob Ash"));
}

TEST_F(UserDataPeople, AFileThatChangesIsReadAnewAndAnnounced) {
  start();
  data_->watchPeople();
  int changes = 0;
  book().registerExternalChangeCallback(
      [](ABAddressBook&, void* count) { ++*static_cast<int*>(count); }, &changes);
  folder_.put("/people.vcf", card("Dan", "Cole", "3"));
  EXPECT_TRUE(device_->queues().runMainUntil([&] { return changes > 0; }, 10s));
  EXPECT_THAT(names(), ElementsAre("Dan Cole"));
  EXPECT_THAT(bad_, IsEmpty());
}

TEST_F(UserDataPeople, AFileThatVanishesIsToldAndThePeopleStay) {
  start();
  data_->watchPeople();
  std::filesystem::remove(folder_.path() + "/people.vcf");
  EXPECT_TRUE(device_->queues().runMainUntil([&] { return !bad_.empty(); }, 10s));
  EXPECT_THAT(bad_.front(), ::testing::HasSubstr("people.vcf"));
  EXPECT_THAT(names(), ElementsAre("Ann Reed", "Bob Ash"));
}

TEST_F(UserDataPeople, WhoHasNoNameIsNotAmongTheContactsOfTheProcess) {
  folder_.put("/people.vcf", card("Ann", "Reed", "1") +
                                 "BEGIN:VCARD\nVERSION:3.0\nN:;;;;\nFN:bob@example.com\n"
                                 "EMAIL:bob@example.com\nEND:VCARD\n"
                                 "BEGIN:VCARD\nVERSION:3.0\nTEL:2\nEND:VCARD\n");
  start();
  EXPECT_THAT(names(), ElementsAre("Ann Reed", "", ""));
  const auto contacts = ZLAddressBook::sharedInstance();
  contacts->loadContacts(nullptr);
  EXPECT_TRUE(device_->queues().runMainUntilIdle());
  ASSERT_NE(contacts->contacts(), nullptr);
  ASSERT_EQ(contacts->contacts()->size(), 1U);
  EXPECT_EQ(contacts->contacts()->front()->compositeName(), "Ann Reed");
}

TEST_F(UserDataPeople, LoadsOfOneLoaderNeverOverlap) {
  start();
  APAddressBook loader;
  std::atomic<int> inside = 0;
  std::atomic<bool> overlaps = false;
  int ended = 0;
  loader.setFilterBlock([&](const APContact&) {
    overlaps = overlaps || ++inside > 1;
    // Time for another thread to come in.
    for (int turn = 0; turn < 5; ++turn) {
      std::this_thread::yield();
    }
    --inside;
    return true;
  });
  for (int load = 0; load < 20; ++load) {
    loader.loadContacts([&](const APAddressBook::Contacts& contacts, const NSError*) {
      EXPECT_EQ(contacts->size(), 2U);
      ++ended;
    });
  }
  EXPECT_TRUE(device_->queues().runMainUntil([&] { return ended == 20; }, 60s));
  EXPECT_FALSE(overlaps);
}

TEST_F(UserDataPeople, ASourceThatCannotBeReadRefusesContactsWithItsName) {
  std::filesystem::remove(folder_.path() + "/people.vcf");
  start();
  std::optional<std::string> reason;
  ZLAddressBook::sharedInstance()->loadContacts([&](bool success, const NSError* error) {
    reason = success ? "" : error->localizedDescription();
  });
  EXPECT_TRUE(device_->queues().runMainUntilIdle());
  EXPECT_THAT(reason.value_or(""), ::testing::HasSubstr("people.vcf"));
  EXPECT_EQ(ZLAddressBook::sharedInstance()->contacts(), nullptr);
}

}  // namespace
}  // namespace zephyl::app
