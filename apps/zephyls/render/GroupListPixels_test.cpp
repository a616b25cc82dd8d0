// How much of a list of ten thousand groups is drawn anew while it scrolls, counted in pixels.

#include <QImage>
#include <cstdint>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "platform/uikit/UIViewAnimation.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/tables/ScrollIndicator.h"
#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/linux/screen/ScreenDevice_testing.h"
#include "hosts/linux/screen/WindowPicture.h"
#include "model/TestGroups.h"
#include "store/ZephylsDataController.h"
#include "ui/groups/ZephylsViewController.h"

namespace zephyl::app::render {
namespace {

using zephyl::test::GroupBuilder;

class GroupListPixels : public ::testing::Test {
 protected:
  static constexpr CGFloat kWidth = 390;
  static constexpr CGFloat kRow = 44;
  static constexpr CGFloat kScale = 2;
  static constexpr auto kStyle = UIUserInterfaceStyle::kLight;

  GroupListPixels() {
    ZephylsDataController::sharedInstance()->allZephyls()->append(manyGroups());
    list_ = std::make_shared<ZephylsViewController>(UITableViewStyle::kPlain);
    list_->setZephylsMode(ZephylsModeManage);
    window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, kWidth, 844));
    window_->setRootViewController(UINavigationController::initWithRootViewController(list_));
    for (int round = 0; round < 3; ++round) {
      window_->layoutWindow();
      device_.device().queues().runMainUntilIdle();
      finishAllAnimations();
    }
    window_->layoutWindow();
    zephyl::test::viewOf<ScrollIndicator>(table())->setHidden(true);
    picture_ = std::make_unique<linux_host::WindowPicture>(*window_, device_.kit().paintCaches());
    scrollTo(1000 * kRow);
  }

  static linux_host::DeviceOptions withGroupsFile() {
    linux_host::DeviceOptions options;
    options.systemVersion = "11.4";
    return options;
  }
  static ZephylVector manyGroups() {
    ZephylVector groups = {made(GroupBuilder(1, "All").system(ZephylSystemModeAll))};
    for (int number = 2; number <= 10'001; ++number) {
      groups.push_back(made(GroupBuilder(number, "Group " + std::to_string(number))
                                .with(keys::kSubTitle, "It has a subtitle, as each of them")));
    }
    return groups;
  }
  static ZephylRef made(const GroupBuilder& builder) {
    return std::make_shared<Zephyl>(static_cast<Dictionary>(builder));
  }
  UITableView& table() { return *list_->tableView(); }
  // How many pixels were painted, and that the picture is as if all of it had been.
  std::int64_t scrollTo(CGFloat y) {
    table().setContentOffset({0, y});
    const std::int64_t painted = picture_->update(kScale, kStyle).painted;
    linux_host::WindowPicture fresh(*window_, device_.kit().paintCaches());
    static_cast<void>(fresh.update(kScale, kStyle));
    EXPECT_EQ(picture_->image(), fresh.image()) << y;
    return painted;
  }
  static std::int64_t pixels(CGFloat height) {
    return static_cast<std::int64_t>(kWidth * kScale * height * kScale);
  }

  // The bar and the header that stays below it lie over the rows that move.
  static constexpr CGFloat kOverRows = 44 + 28;
  // Where rows are cut by pixels and by lines between them.
  static constexpr CGFloat kEdges = 8;

  linux_host::ScreenDevice device_{linux_host::stillScreen(kScale), withGroupsFile()};
  std::shared_ptr<ZephylsViewController> list_;
  std::shared_ptr<UIWindow> window_;
  std::unique_ptr<linux_host::WindowPicture> picture_;
};

TEST_F(GroupListPixels, TwelveRowsFurtherPaintsTwelveRows) {
  ASSERT_EQ(table().numberOfRowsInSection(1), 10'000);
  for (int step = 1; step <= 5; ++step) {
    const std::int64_t painted = scrollTo(1000 * kRow + 12 * kRow * step);
    EXPECT_LE(painted, pixels(12 * kRow + kOverRows + kEdges)) << step;
    EXPECT_GT(painted, pixels(10 * kRow)) << step;
  }
}

TEST_F(GroupListPixels, AStepPaintsTheStripThatComesIn) {
  for (int step = 1; step <= 10; ++step) {
    EXPECT_LE(scrollTo(1000 * kRow + 10 * step), pixels(10 + kOverRows + kEdges)) << step;
  }
}

TEST_F(GroupListPixels, TheEndOfTheListIsAsNearAsItsBeginning) {
  scrollTo(9900 * kRow);
  EXPECT_LE(scrollTo(9900 * kRow + 12 * kRow), pixels(12 * kRow + kOverRows + kEdges));
}

}  // namespace
}  // namespace zephyl::app::render
