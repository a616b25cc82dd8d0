// A stack of screens about groups, as the programs show it: on it an editor offers the colour of
// the group's marker too, whoever opened it. Main thread.
//
// The library leaves that row out of every editor it opens; a host asks for it.

#pragma once

#include <functional>
#include <memory>

#include "platform/uikit/controllers/UINavigationController.h"

namespace zephyl::app {

class GroupsNavigationController : public UINavigationController {
 public:
  [[nodiscard]] static std::shared_ptr<GroupsNavigationController> initWithRootViewController(
      const std::shared_ptr<UIViewController>& root);

  void viewWillLayoutSubviews() override;
};

// What the add button of a list of groups does: a new group in a stack of its own, over `list`, or
// nothing once that is gone. For `ZephylsViewControllerDelegate::zp__addNewGroup`.
[[nodiscard]] std::function<void()> addingNewGroup(std::weak_ptr<UIViewController> list);

}  // namespace zephyl::app
