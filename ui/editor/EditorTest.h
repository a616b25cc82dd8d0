// For the tests of the editor: a device with a store, and the editor on a window's screen.

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UIAlertController.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UINavigationItem.h"
#include "platform/uikit/controls/UISwitch.h"
#include "platform/uikit/testing/TreeBuilder.h"
#include "platform/uikit/text/UILabel.h"
#include "platform/uikit/text/UITextField.h"

#include "hosts/fake/Conversations.h"
#include "hosts/fake/Device.h"
#include "model/TestGroups.h"
#include "store/ZephylsDataController.h"
#include "ui/components/ZPFloatingLabeledTextField.h"
#include "ui/editor/ZephylViewController.h"

namespace zephyl::test {

class EditorTest : public ::testing::Test {
 protected:
  static constexpr char kGroupsFile[] =
      "/var/mobile/Library/Preferences/com.vantor.zephyls-profiles.plist";
  static constexpr char kMaskedDefault[] =
      "This message is protected by Zephyls and available in Messages app only.";

  // Version 11.4 reads and writes the groups file itself.
  EditorTest() { window_->setRootViewController(navigation_); }

  static std::shared_ptr<ZephylsDataController> store() {
    return ZephylsDataController::sharedInstance();
  }
  static ZephylRef group(const GroupBuilder& builder) {
    return std::make_shared<Zephyl>(static_cast<Dictionary>(builder));
  }
  // Stored, so that it can be changed.
  static ZephylRef storedGroup(const GroupBuilder& builder) {
    auto made = group(builder);
    store()->addZephyl(made, nullptr, nullptr);
    return made;
  }

  // Pushed onto the list of groups.
  void edit(const ZephylRef& zephyl) {
    make(zephyl);
    navigation_->pushViewController(editor_, /*animated=*/false);
    settle();
  }
  void edit(const GroupBuilder& builder) { edit(storedGroup(builder)); }
  // Presented over it.
  void createNew() {
    make(nullptr);
    list_->presentViewController(UINavigationController::initWithRootViewController(editor_),
                                 /*animated=*/false);
    settle();
  }
  void make(const ZephylRef& zephyl) {
    editor_ = std::make_shared<ZephylViewController>();
    editor_->setZephyl(zephyl);
  }
  void settle() {
    device_.uikit()->displayLink().runUntilIdle();
    window_->layoutWindow();
  }
  // All queues too.
  void settleAll() {
    device_.dispatch().runAll();
    settle();
  }

  UITableView& table() { return *editor_->tableView(); }
  UINavigationItem& bar() { return *editor_->navigationItem(); }
  bool canSave() { return bar().rightBarButtonItem()->isEnabled(); }
  void save() {
    EXPECT_TRUE(bar().rightBarButtonItem()->performAction());
    settle();
  }
  // Null while the row is not seen.
  std::shared_ptr<UITableViewCell> cell(std::int64_t section, std::int64_t row) {
    return table().cellForRowAtIndexPath({section, row});
  }
  std::string textOf(std::int64_t section, std::int64_t row) {
    const auto found = cell(section, row);
    return found == nullptr ? "no cell" : found->textLabel()->text();
  }
  std::int64_t rows(std::int64_t section) {
    return editor_->numberOfRowsInSection(table(), section);
  }
  CGFloat footerHeight(std::int64_t section) {
    return editor_->heightForFooterInSection(table(), section).value_or(-1);
  }
  template <class View>
  std::shared_ptr<View> tagged(std::int64_t tag) {
    return std::dynamic_pointer_cast<View>(editor_->view()->viewWithTag(tag));
  }
  std::shared_ptr<ZPFloatingLabeledTextField> field(std::int64_t tag) {
    return tagged<ZPFloatingLabeledTextField>(tag);
  }
  std::shared_ptr<UISwitch> switchOf(std::int64_t section, std::int64_t row) {
    return std::dynamic_pointer_cast<UISwitch>(cell(section, row)->accessoryView());
  }
  // As the user does.
  void turn(std::int64_t section, std::int64_t row) {
    const auto control = switchOf(section, row);
    ASSERT_NE(control, nullptr);
    EXPECT_TRUE(control->accessibilityActivate());
    settle();
  }
  void typeInto(std::int64_t tag, const std::string& text) {
    const auto typed = field(tag);
    ASSERT_NE(typed, nullptr);
    EXPECT_TRUE(typed->becomeFirstResponder());
    EXPECT_TRUE(device_.uikit()->textInput().replace(text));
    settle();
  }
  void tapRow(std::int64_t section, std::int64_t row) {
    const NSIndexPath path{section, row};
    table().scrollToRowAtIndexPath(path, UITableViewScrollPosition::kMiddle, /*animated=*/false);
    settle();
    const CGRect rect = table().rectForRowAtIndexPath(path);
    tap(*window_, table().convertPointToView({60, rect.midY()}, nullptr));
    settle();
  }
  UILabel* footerLabel(std::int64_t section) {
    const auto footer = table().footerViewForSection(section);
    return footer == nullptr
               ? nullptr
               : dynamic_cast<UILabel*>(
                     footer->viewWithTag(ZephylViewController::kFooterLabelTag).get());
  }
  // The alert that the editor shows; null for none.
  std::shared_ptr<UIAlertController> alert() {
    return std::dynamic_pointer_cast<UIAlertController>(
        editor_->navigationController() == nullptr
            ? editor_->presentedViewController()
            : editor_->navigationController()->presentedViewController());
  }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<UIViewController> list_ = std::make_shared<UIViewController>();
  std::shared_ptr<UINavigationController> navigation_ =
      UINavigationController::initWithRootViewController(list_);
  std::shared_ptr<ZephylViewController> editor_;
};

}  // namespace zephyl::test
