// One change of what a navigation controller shows, while it is seen to happen.

#pragma once

#include <memory>

#include "platform/uikit/UIView.h"
#include "platform/uikit/controllers/UINavigationController.h"

namespace zephyl {

struct UINavigationController::Transition {
  // Null when there was, or is, none.
  std::shared_ptr<UIViewController> from;
  std::shared_ptr<UIViewController> to;
  // What is to leave its parent in the end.
  Controllers leaving;
  // Over the lower of both views.
  std::shared_ptr<UIView> dimming;
  bool forwards = true;
};

}  // namespace zephyl
