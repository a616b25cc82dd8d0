// Observing changes of the address book.

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "contacts/APAddressBook.h"
#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

class APAddressBookChangesTest : public ::testing::Test {
 protected:
  APAddressBook::ChangeCallback writing(const std::string& text) {
    return [this, text] { written_ += text; };
  }
  void change() {
    device_.people().announceExternalChange();
    device_.dispatch().runAll();
  }

  fake::Device device_;
  std::unique_ptr<APAddressBook> book_ = std::make_unique<APAddressBook>();
  std::string written_;
};

TEST_F(APAddressBookChangesTest, TheCallbackRunsOnEveryChange) {
  change();
  book_->startObserveChangesWithCallback(writing("a"));
  EXPECT_EQ(written_, "");
  change();
  change();
  EXPECT_EQ(written_, "aa");
}

TEST_F(APAddressBookChangesTest, AnEmptyCallbackDoesNothing) {
  book_->startObserveChangesWithCallback(nullptr);
  EXPECT_EQ(device_.people().registrations(), 0);
  book_->startObserveChangesWithCallback(writing("a"));
  book_->startObserveChangesWithCallback(nullptr);
  change();
  EXPECT_EQ(written_, "a");
}

TEST_F(APAddressBookChangesTest, StartingTwiceKeepsOneRegistrationAndTheLatestCallback) {
  book_->startObserveChangesWithCallback(writing("a"));
  book_->startObserveChangesWithCallback(writing("b"));
  EXPECT_EQ(device_.people().registrations(), 1);
  change();
  EXPECT_EQ(written_, "b");
}

TEST_F(APAddressBookChangesTest, StoppingUnregistersOnceAndForgetsTheCallback) {
  book_->stopObserveChanges();
  EXPECT_EQ(device_.people().unregistrations(), 0);
  book_->startObserveChangesWithCallback(writing("a"));
  book_->stopObserveChanges();
  book_->stopObserveChanges();
  EXPECT_EQ(device_.people().unregistrations(), 1);
  EXPECT_FALSE(book_->changeCallback());
  change();
  EXPECT_EQ(written_, "");
  book_->startObserveChangesWithCallback(writing("b"));
  change();
  EXPECT_EQ(written_, "b");
}

TEST_F(APAddressBookChangesTest, ALoaderThatIsGoneIsNotCalled) {
  book_->startObserveChangesWithCallback(writing("a"));
  device_.people().announceExternalChange();
  book_.reset();
  device_.dispatch().runAll();
  change();
  EXPECT_EQ(written_, "");
}

TEST_F(APAddressBookChangesTest, ALoaderMayGoWithoutItsCallback) {
  book_->startObserveChangesWithCallback(writing("a"));
  book_->setChangeCallback(nullptr);
  book_.reset();
  change();
  EXPECT_EQ(written_, "");
}

TEST_F(APAddressBookChangesTest, WhoeverHoldsTheRegistrationCanTakeItBack) {
  book_->startObserveChangesWithCallback(writing("a"));
  APAddressBookExternalChangeCallback(device_.people(), book_.get());
  EXPECT_EQ(written_, "a");
  device_.people().unregisterExternalChangeCallback(APAddressBookExternalChangeCallback,
                                                    book_.get());
  EXPECT_EQ(device_.people().unregistrations(), 1);
  change();
  EXPECT_EQ(written_, "a");
  book_->setChangeCallback(nullptr);
  APAddressBookExternalChangeCallback(device_.people(), book_.get());
  EXPECT_EQ(written_, "a");
}

TEST_F(APAddressBookChangesTest, TheCallbackMaySetAnotherOne) {
  book_->startObserveChangesWithCallback([this] {
    written_ += "a";
    book_->setChangeCallback(writing("b"));
  });
  change();
  change();
  EXPECT_EQ(written_, "ab");
}

}  // namespace
}  // namespace zephyl
