// Picking conversations from the editor: what is marked, and that the list of conversations shows
// everything for exactly as long as the picker is there.

#include <memory>
#include <utility>

#include <gtest/gtest.h>

#include "model/ContactIdentity.h"
#include "ui/editor/EditorTest.h"
#include "ui/editor/ZPConversationSelectionViewController.h"

namespace zephyl::test {
namespace {

using Picker = ZPConversationSelectionViewController;
using Accessory = UITableViewCellAccessoryType;

class EditorPicking : public EditorTest {
 protected:
  EditorPicking() {
    device_.conversationList().setConversations({robin_, sam_});
    device_.conversationList().setShows([](const ZephylRef& group, const CKConversationRef& one) {
      const auto members = group->contacts();
      const auto identity = firstContactIdentity(*one);
      return members != nullptr && identity && members->contains(*identity);
    });
  }
  void editMembers(Array members) {
    edit(group(GroupBuilder(7, "Family").members(std::move(members))));
    editor_->setCurrentSelectionSegment(1);
    table().reloadData();
    settle();
  }
  void openPicker() {
    tapRow(4, 0);
    const auto shown =
        std::dynamic_pointer_cast<UINavigationController>(navigation_->presentedViewController());
    picker_ =
        shown == nullptr ? nullptr : std::dynamic_pointer_cast<Picker>(shown->topViewController());
  }
  Accessory accessoryOf(std::int64_t row) {
    return picker_->tableView()->cellForRowAtIndexPath({0, row})->accessoryType();
  }
  [[nodiscard]] bool showsAll() { return device_.conversationList().isShowingAllConversations(); }

  const CKConversationRef robin_ = fake::chat("iMessage;-;robin", {fake::known(1)});
  const CKConversationRef sam_ = fake::chat("SMS;-;sam", {fake::known(2)});
  std::shared_ptr<Picker> picker_;
};

TEST_F(EditorPicking, AConversationOfAMemberIsMarkedAndNotTicked) {
  editMembers({1});
  openPicker();
  ASSERT_NE(picker_, nullptr);
  EXPECT_EQ(accessoryOf(0), Accessory::kCheckmark);
  EXPECT_EQ(accessoryOf(1), Accessory::kNone);
  EXPECT_TRUE(picker_->selectedConversations().empty());
}

TEST_F(EditorPicking, MarksAreThoseOfTheMembersAsTheyAreEdited) {
  editMembers({1});
  editor_->addContactsToZephyls({});
  openPicker();
  ASSERT_NE(picker_, nullptr);
  EXPECT_EQ(accessoryOf(0), Accessory::kNone);
}

TEST_F(EditorPicking, ItIsOverWhenAScreenBelowDismissesThePicker) {
  editMembers({});
  openPicker();
  ASSERT_TRUE(showsAll());
  navigation_->dismissViewControllerAnimated(/*animated=*/false);
  settle();
  EXPECT_FALSE(showsAll());
}

TEST_F(EditorPicking, ItIsOverWhenTheWindowShowsSomethingElse) {
  editMembers({});
  openPicker();
  ASSERT_TRUE(showsAll());
  picker_ = nullptr;
  window_->setRootViewController(std::make_shared<UIViewController>());
  settle();
  EXPECT_FALSE(showsAll());
}

TEST_F(EditorPicking, ItNeverBeginsWhereThePickerCannotBePresented) {
  editMembers({});
  navigation_->presentViewController(std::make_shared<UIViewController>(), /*animated=*/false);
  settle();
  editor_->didSelectRowAtIndexPath(table(), {4, 0});
  settle();
  EXPECT_FALSE(showsAll());
}

TEST_F(EditorPicking, ItGoesOnUnderAnotherScreen) {
  device_.device().setSystemVersion("11.4");
  editMembers({});
  openPicker();
  picker_->presentViewController(std::make_shared<UIViewController>(), /*animated=*/false);
  settle();
  EXPECT_TRUE(showsAll());
  picker_->dismissViewControllerAnimated(/*animated=*/false);
  settle();
  EXPECT_TRUE(showsAll());
}

TEST_F(EditorPicking, APickerThatIsLetGoLateDoesNotEndTheNextOne) {
  editMembers({});
  openPicker();
  auto former = std::exchange(picker_, nullptr);
  former->cancelButtonAction();
  settle();
  openPicker();
  former = nullptr;
  EXPECT_TRUE(showsAll());
}

}  // namespace
}  // namespace zephyl::test
