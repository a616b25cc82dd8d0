// Switches, segments, buttons, wheels.

#include <memory>
#include <string>
#include <vector>

#include "platform/foundation/NSBundle.h"
#include "platform/uikit/UIImage.h"
#include "platform/uikit/controls/UIActivityIndicatorView.h"
#include "platform/uikit/controls/UIButton.h"
#include "platform/uikit/controls/UISegmentedControl.h"
#include "platform/uikit/controls/UISwitch.h"

#include "apps/zephyls/render/Stage.h"
#include "apps/zephyls/render/StagedComponents.h"
#include "model/ZPLocalizedText.h"

namespace zephyl::app::render {

namespace {

UIImageRef groupPicture() {
  const auto bundle = NSBundle::bundleWithPath(kZephylsSettingsBundlePath);
  return bundle == nullptr ? nullptr : UIImage::imageNamed("users_group", *bundle);
}

std::shared_ptr<UIButton> button(UIButtonType type, const std::string& title) {
  auto made = UIButton::buttonWithType(type);
  made->setTitle(title);
  return made;
}

std::shared_ptr<UISegmentedControl> segments(const std::vector<std::string>& titles, int selected) {
  auto made = std::make_shared<UISegmentedControl>(titles);
  made->setSelectedSegmentIndex(selected);
  return made;
}

}  // namespace

void stageSwitches(Stage& stage) {
  for (const bool enabled : {true, false}) {
    for (const bool on : {false, true}) {
      const auto made = std::make_shared<UISwitch>();
      made->setOn(on);
      made->setEnabled(enabled);
      stage.add(std::string(on ? "on" : "off").append(enabled ? "" : ", disabled"), made);
    }
  }
  const auto tinted = std::make_shared<UISwitch>();
  tinted->setOnTintColor(UIColor::systemBlueColor());
  tinted->setOn(true);
  stage.add("tinted", tinted);
}

void stageSegments(Stage& stage) {
  constexpr CGFloat kHeight = 32;
  constexpr CGFloat kWide = Stage::kWidth - 32;
  stage.add("two", segments({"Contacts", "Numbers"}, 0), {kWide, kHeight});
  stage.add("three", segments({"Name", "Created", "Count"}, 1), {kWide, kHeight});
  stage.add("none selected", segments({"Ascending", "Descending"}, -1), {kWide, kHeight});
  stage.add("long titles",
            segments({"The first of all segments", "Two", "The third of all segments"}, 2),
            {kWide, kHeight});
  const auto disabled = segments({"Contacts", "Numbers"}, 0);
  disabled->setEnabled(false);
  stage.add("disabled", disabled, {kWide, kHeight});
  stage.add("its own size", segments({"On", "Off"}, 1));
}

void stageButtons(Stage& stage) {
  stage.add("system", button(UIButtonType::kSystem, "Add Contacts"));
  const auto pressed = button(UIButtonType::kSystem, "Pressed");
  pressed->setHighlighted(true);
  stage.add("system, pressed", pressed);
  const auto disabled = button(UIButtonType::kSystem, "Disabled");
  disabled->setEnabled(false);
  stage.add("system, disabled", disabled);
  const auto pictured = button(UIButtonType::kSystem, "Groups");
  pictured->setImage(groupPicture());
  stage.add("system with a picture", pictured);
  const auto picture = button(UIButtonType::kSystem, "");
  picture->setImage(groupPicture());
  stage.add("picture alone", picture);
  const auto custom = button(UIButtonType::kCustom, "Custom");
  custom->setBackgroundColor(UIColor::systemRedColor());
  custom->setContentEdgeInsets({6, 12, 6, 12});
  stage.add("custom", custom);
  const auto leading = button(UIButtonType::kSystem, "At the leading side");
  leading->setContentHorizontalAlignment(UIControlContentHorizontalAlignment::kLeading);
  stage.add("leading", leading, {Stage::kWidth - 32, 44});
}

void stageActivityIndicators(Stage& stage) {
  struct Style {
    const char* caption;
    UIActivityIndicatorViewStyle style;
  };
  for (const Style& each : {Style{"gray", UIActivityIndicatorViewStyle::kGray},
                            Style{"medium", UIActivityIndicatorViewStyle::kMedium},
                            Style{"large", UIActivityIndicatorViewStyle::kLarge},
                            Style{"white", UIActivityIndicatorViewStyle::kWhite},
                            Style{"large white", UIActivityIndicatorViewStyle::kWhiteLarge}}) {
    const auto wheel = std::make_shared<UIActivityIndicatorView>(each.style);
    const bool white = each.style == UIActivityIndicatorViewStyle::kWhite ||
                       each.style == UIActivityIndicatorViewStyle::kWhiteLarge;
    if (white) {
      wheel->setBackgroundColor(UIColor::systemGrayColor());
    }
    wheel->startAnimating();
    stage.add(each.caption, wheel);
  }
  const auto coloured =
      std::make_shared<UIActivityIndicatorView>(UIActivityIndicatorViewStyle::kWhiteLarge);
  coloured->setColor(UIColor::systemBlueColor());
  coloured->startAnimating();
  stage.add("blue", coloured);
  const auto still =
      std::make_shared<UIActivityIndicatorView>(UIActivityIndicatorViewStyle::kLarge);
  still->setHidesWhenStopped(false);
  stage.add("still", still);
}

}  // namespace zephyl::app::render
