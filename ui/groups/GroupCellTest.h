// For the tests of the cells: a device with the settings bundle's pictures, and groups on it.

#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "platform/uikit/UIImage.h"
#include "platform/uikit/UIWindow.h"

#include "hosts/fake/Conversations.h"
#include "hosts/fake/Device.h"
#include "model/TestGroups.h"
#include "model/Zephyl.h"

namespace zephyl::test {

class GroupCellTest : public ::testing::Test {
 protected:
  static constexpr char kBundle[] = "/System/Library/PreferenceBundles/ZephylsSettings.bundle";

  GroupCellTest() {
    device_.device().setSystemVersion("14.0");
    for (const char* name : {"check", "locked"}) {
      device_.files().put(std::string(kBundle).append("/").append(name).append(".png"), name);
    }
  }

  // The picture's bytes, which here are its name; empty for none.
  static std::string nameOf(const UIImageRef& picture) {
    return picture == nullptr ? "" : std::string(picture->file().begin(), picture->file().end());
  }
  static ZephylRef group(const GroupBuilder& builder) {
    return std::make_shared<Zephyl>(static_cast<Dictionary>(builder));
  }
  // With so many unread conversations.
  ZephylRef groupWithUnread(const GroupBuilder& builder, std::int32_t unread) {
    CKConversationArray conversations;
    for (std::int32_t number = 1; number <= unread; ++number) {
      conversations.push_back(
          fake::unreadChat(std::string("c").append(std::to_string(number)), {fake::known(number)}));
    }
    device_.conversationList().setConversations(std::move(conversations));
    const auto made = group(builder);
    made->loadAffiliatedConversations(/*inBackground=*/false);
    return made;
  }
  // In a window, at the size that a table would give it.
  template <typename Cell>
  std::shared_ptr<Cell> show(const std::shared_ptr<Cell>& cell, CGFloat width, CGFloat height) {
    cell->setFrame(CGRectMake(0, 0, width, height));
    window_->addSubview(cell);
    window_->layoutWindow();
    return cell;
  }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
};

}  // namespace zephyl::test
