// Navigation bars, and a screen as a card over another.

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/foundation/NSBundle.h"
#include "platform/uikit/UIImage.h"
#include "platform/uikit/controllers/UIBarButtonItem.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UINavigationItem.h"

#include "apps/zephyls/render/Stage.h"
#include "apps/zephyls/render/StagedComponents.h"
#include "model/ZPLocalizedText.h"

namespace zephyl::app::render {

namespace {

constexpr CGSize kSize{Stage::kWidth, 120};

std::shared_ptr<UIViewController> makeScreen(const std::string& title) {
  auto screen = std::make_shared<UIViewController>();
  screen->setTitle(title);
  screen->view()->setBackgroundColor(UIColor::systemGroupedBackgroundColor());
  return screen;
}

UIBarButtonItemRef system(UIBarButtonSystemItem item) {
  return std::make_shared<UIBarButtonItem>(item, std::weak_ptr<const void>(), nullptr);
}

// The last of the titles is on top.
std::shared_ptr<UINavigationController> stack(const std::vector<std::string>& titles) {
  auto navigation = UINavigationController::initWithRootViewController(makeScreen(titles.front()));
  for (std::size_t index = 1; index < titles.size(); ++index) {
    navigation->pushViewController(makeScreen(titles[index]), /*animated=*/false);
  }
  return navigation;
}

}  // namespace

void stageNavigationRoot(Stage& stage) {
  const auto navigation = stack({"Zephyls"});
  const auto& item = navigation->topViewController()->navigationItem();
  item->setLeftBarButtonItem(system(UIBarButtonSystemItem::kEdit));
  const auto bundle = NSBundle::bundleWithPath(kZephylsSettingsBundlePath);
  const UIImageRef groups =
      bundle == nullptr ? nullptr : UIImage::imageNamed("users_group", *bundle);
  item->setRightBarButtonItems(
      {system(UIBarButtonSystemItem::kAdd),
       std::make_shared<UIBarButtonItem>(groups, UIBarButtonItemStyle::kPlain,
                                         std::weak_ptr<const void>(), nullptr)});
  stage.show(navigation, kSize);
}

void stageNavigationPushed(Stage& stage) {
  const auto navigation = stack({"Groups", "Family"});
  const auto save = system(UIBarButtonSystemItem::kSave);
  save->setEnabled(false);
  navigation->topViewController()->navigationItem()->setRightBarButtonItem(save);
  stage.show(navigation, kSize);
}

void stageNavigationLong(Stage& stage) {
  stage.show(
      stack({"The groups of all conversations", "A title that goes on and on and on and on"}),
      kSize);
}

void stageNavigationModal(Stage& stage) {
  const auto navigation = stack({"Marker Color"});
  const auto& item = navigation->topViewController()->navigationItem();
  item->setLeftBarButtonItem(system(UIBarButtonSystemItem::kCancel));
  item->setRightBarButtonItem(system(UIBarButtonSystemItem::kDone));
  stage.show(navigation, kSize);
}

void stageSheet(Stage& stage) {
  const auto below = stack({"Messages"});
  const auto card = stack({"New Group"});
  const auto& item = card->topViewController()->navigationItem();
  item->setLeftBarButtonItem(system(UIBarButtonSystemItem::kCancel));
  item->setRightBarButtonItem(system(UIBarButtonSystemItem::kDone));
  stage.show(below, {Stage::kWidth, 420});
  stage.then([below, card](UIWindow&) { below->presentViewController(card, /*animated=*/false); });
}

}  // namespace zephyl::app::render
