#include "apps/common/GroupsNavigationController.h"

#include <utility>

#include "services/ZPUtils.h"
#include "ui/editor/ZephylViewController.h"

namespace zephyl::app {

namespace {

// Loading its view takes the row away, so it is asked for afterwards. Without biometrics the editor
// shows another row in its place, which says nothing of use there.
void offerMarkerColor(const std::shared_ptr<UIViewController>& screen) {
  const auto editor = std::dynamic_pointer_cast<ZephylViewController>(screen);
  if (editor == nullptr || !editor->isViewLoaded() || editor->shouldDisplayMarkerColor() ||
      !ZPUtils::supportsTouchID()) {
    return;
  }
  editor->setShouldDisplayMarkerColor(true);
  editor->tableView()->reloadData();
}

}  // namespace

std::shared_ptr<GroupsNavigationController> GroupsNavigationController::initWithRootViewController(
    const std::shared_ptr<UIViewController>& root) {
  auto made = std::make_shared<GroupsNavigationController>();
  made->pushViewController(root, /*animated=*/false);
  return made;
}

// Before the screen on top is laid out for the first time.
void GroupsNavigationController::viewWillLayoutSubviews() {
  UINavigationController::viewWillLayoutSubviews();
  offerMarkerColor(topViewController());
}

std::function<void()> addingNewGroup(std::weak_ptr<UIViewController> list) {
  return [list = std::move(list)] {
    if (const auto shown = list.lock()) {
      shown->presentViewController(GroupsNavigationController::initWithRootViewController(
                                       std::make_shared<ZephylViewController>()),
                                   /*animated=*/true);
    }
  };
}

}  // namespace zephyl::app
