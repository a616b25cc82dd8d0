// Pictures that were looked at and kept: what is drawn today is compared with them.
//
// ZEPHYLS_REWRITE_GOLDEN=1 in the environment keeps what is drawn today instead; look at it then.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "platform/uikit/UIGraphics.h"
#include "platform/uikit/UIKitHost.h"
#include "platform/uikit/controllers/UIAlertController.h"
#include "platform/uikit/controls/UISegmentedControl.h"

#include "apps/zephyls/render/PictureComparison.h"
#include "apps/zephyls/render/Renderer.h"
#include "apps/zephyls/render/SampleGroup.h"
#include "apps/zephyls/render/Specimens.h"
#include "apps/zephyls/render/Stage.h"
#include "hosts/linux/FileContents.h"
#include "ui/components/HRColorPickerView.h"
#include "ui/components/UIZPBadgeView.h"
#include "ui/groups/ZephylsManageTableViewCell.h"
#include "ui/groups/ZephylsTableViewCell.h"

namespace zephyl::app::render {
namespace {

void stageBadges(Stage& stage) {
  const auto room = std::make_shared<UIView>();
  stage.add("badges", room, {200, 50});
  for (const std::int64_t value : {7, 42, 1234}) {
    const auto badge = std::make_shared<UIZPBadgeView>();
    room->addSubview(badge);
    badge->setPosition(ZPBadgePositionCenterLeft);
    badge->setBadgeValue(value);
    const std::int64_t wider = value / 60;
    badge->setHorizontalOffset(30 * static_cast<float>(room->subviews().size()) +
                               static_cast<float>(wider));
    badge->setOutlineColor(UIColor::systemGrayColor());
    badge->zp_updateBadgeViewPosition();
  }
}

void stageRow(Stage& stage) {
  const auto row =
      std::make_shared<ZephylsManageTableViewCell>(UITableViewCellStyle::kDefault, "defaultCell");
  stage.add("row", row, {Stage::kWidth, 44});
  row->setZephyl(SampleGroup("Family").subtitle("Everyone at home").unread(3).active().make());
}

void stageTile(Stage& stage) {
  const auto tile =
      std::make_shared<ZephylsTableViewCell>(UITableViewCellStyle::kValue1, "defaultCell");
  stage.add("tile", tile, {109, 104});
  tile->setZephyl(SampleGroup("Work").marker("34c759ff").unread(3).make());
}

void stageAlert(Stage& stage) {
  const auto screen = std::make_shared<UIViewController>();
  const auto alert = UIAlertController::alertControllerWithTitle(
      "Delete Group?", "Its conversations stay.", UIAlertControllerStyle::kAlert);
  alert->addAction(UIAlertAction::actionWithTitle("Cancel", UIAlertActionStyle::kCancel, nullptr));
  alert->addAction(
      UIAlertAction::actionWithTitle("Delete", UIAlertActionStyle::kDestructive, nullptr));
  stage.show(screen, {320, 200});
  stage.then(
      [screen, alert](UIWindow&) { screen->presentViewController(alert, /*animated=*/false); });
}

void stagePicker(Stage& stage) {
  const auto picker = std::make_shared<HRColorPickerView>();
  stage.add("picker", picker, {160, 264});
  picker->setColor(UIColor::colorWithRed(0.2, 0.6, 0.9, 1));
}

void stageSegmented(Stage& stage) {
  const auto segments =
      std::make_shared<UISegmentedControl>(std::vector<std::string>{"Contacts", "Numbers"});
  segments->setSelectedSegmentIndex(0);
  stage.add("segments", segments, {240, 32});
}

class GoldenPictures : public ::testing::TestWithParam<Specimen> {
 protected:
  static std::filesystem::path fileOf(const Specimen& specimen) {
    return std::filesystem::path(ZEPHYLS_GOLDEN) / std::string(specimen.name).append(".png");
  }
  static bool isRewriting() { return std::getenv("ZEPHYLS_REWRITE_GOLDEN") != nullptr; }
};

TEST_P(GoldenPictures, LookAsTheyDid) {
  RenderSettings settings;
  settings.dark = GetParam().name.ends_with("-dark");
  settings.overlay = ZEPHYLS_OVERLAY;
  Renderer renderer(settings);
  if (isRewriting()) {
    ASSERT_EQ(linux_host::replaceFile(fileOf(GetParam()).string(), renderer.png(GetParam())),
              std::nullopt);
    GTEST_SKIP() << "kept anew: " << fileOf(GetParam());
  }
  const auto kept = linux_host::readWholeFile(fileOf(GetParam()).string());
  ASSERT_TRUE(kept.contents) << fileOf(GetParam());
  const CGBitmapRef golden = uikitHost().graphics().decode(
      Data(kept.contents->begin(), kept.contents->end()), 4096, nullptr);
  ASSERT_NE(golden, nullptr);
  EXPECT_EQ(whyDifferent(*renderer.picture(GetParam()), *golden), "");
}

std::string nameOf(const ::testing::TestParamInfo<Specimen>& info) {
  std::string name;
  for (const char character : info.param.name) {
    name.push_back(character == '-' ? '_' : character);
  }
  return name;
}

INSTANTIATE_TEST_SUITE_P(
    Render, GoldenPictures,
    ::testing::Values(Specimen{"badge", "", stageBadges}, Specimen{"row-cell", "", stageRow},
                      Specimen{"row-cell-dark", "", stageRow}, Specimen{"tile-cell", "", stageTile},
                      Specimen{"alert", "", stageAlert}, Specimen{"color-picker", "", stagePicker},
                      Specimen{"segments", "", stageSegmented}),
    nameOf);

}  // namespace
}  // namespace zephyl::app::render
