// The colour picker and its parts.

#include <memory>
#include <string>

#include "platform/uikit/controllers/UINavigationController.h"

#include "apps/zephyls/render/Stage.h"
#include "apps/zephyls/render/StagedComponents.h"
#include "ui/components/HRBrightnessCursor.h"
#include "ui/components/HRBrightnessSlider.h"
#include "ui/components/HRColorCursor.h"
#include "ui/components/HRColorInfoView.h"
#include "ui/components/HRColorMapView.h"
#include "ui/components/HRColorPickerView.h"
#include "ui/components/ZPColorPickerViewController.h"

namespace zephyl::app::render {

namespace {

const UIColor kOrange = UIColor::colorWithRed(1, 0.58, 0, 1);
const UIColor kPale = UIColor::colorWithRed(0.85, 0.95, 0.9, 1);
const UIColor kDark = UIColor::colorWithRed(0.1, 0.2, 0.5, 1);

struct Named {
  const char* name;
  UIColor color;
};

}  // namespace

void stageColorMap(Stage& stage) {
  for (const Named& each : {Named{"orange", kOrange}, Named{"pale: grey cursor", kPale},
                            Named{"dark", kDark}, Named{"red", UIColor::redColor()}}) {
    const auto map = std::make_shared<HRColorMapView>();
    map->setTileSize(16);
    // The cursor stands out of it.
    constexpr CGFloat kRoom = 14;
    const auto room = std::make_shared<UIView>();
    room->addSubview(map);
    map->setFrame(CGRectMake(0, kRoom, 160, 160));
    stage.add(each.name, room, {160, 160 + kRoom});
    map->setColor(each.color);
    map->setBrightness(each.color.hueChannels().brightness);
  }
}

void stageColorCursors(Stage& stage) {
  for (const bool editing : {false, true}) {
    for (const Named& each :
         {Named{"orange", kOrange}, Named{"pale", kPale}, Named{"dark", kDark}}) {
      const auto ground = std::make_shared<UIView>();
      ground->setBackgroundColor(each.color);
      const auto cursor = HRColorCursor::colorCursorWithPoint({16, 16});
      cursor->setColor(each.color);
      cursor->setEditing(editing);
      ground->addSubview(cursor);
      stage.add(editing ? "touched" : each.name, ground, {56, 60});
      const auto knob = std::make_shared<HRBrightnessCursor>();
      knob->setColor(each.color);
      knob->setEditing(editing);
      stage.add("knob", knob, {28, 28});
    }
    stage.breakLine();
  }
}

void stageBrightnessSlider(Stage& stage) {
  for (const double limit : {0.0, 0.4}) {
    for (const Named& each : {Named{"orange", kOrange}, Named{"dark", kDark}}) {
      const auto slider = std::make_shared<HRBrightnessSlider>();
      slider->setBrightnessLowerLimit(limit);
      slider->setColor(each.color);
      stage.add(std::string(each.name).append(limit > 0 ? ", limit 0.4" : ""), slider,
                {Stage::kWidth - 32, 44});
    }
  }
}

void stageColorInfo(Stage& stage) {
  for (const Named& each : {Named{"orange", kOrange}, Named{"pale", kPale}, Named{"dark", kDark},
                            Named{"white", UIColor::whiteColor()}}) {
    const auto info = std::make_shared<HRColorInfoView>();
    info->setColor(each.color);
    stage.add(each.name, info, {66, 84});
  }
}

void stageColorPicker(Stage& stage) {
  const auto picker = std::make_shared<HRColorPickerView>();
  stage.add("picker", picker, {Stage::kWidth - 32, 440});
  picker->setColor(kOrange);
}

void stageColorPickerScreen(Stage& stage) {
  const auto editor = std::make_shared<UIViewController>();
  editor->setTitle("Group");
  const auto picker = std::make_shared<ZPColorPickerViewController>(kOrange);
  stage.show(UINavigationController::initWithRootViewController(editor), {Stage::kWidth, 620});
  stage.then([editor, picker](UIWindow&) {
    picker->showInViewController(editor, "Marker Color", nullptr);
  });
}

}  // namespace zephyl::app::render
