// Screens over screens: who presents, and what cannot be.

#include <utility>

#include "platform/Host.h"
#include "platform/foundation/SystemLog.h"
#include "platform/uikit/UIDevice.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/SheetPresentation.h"
#include "platform/uikit/controllers/UIPresentationController.h"
#include "platform/uikit/controllers/UIViewController.h"

namespace zephyl {

namespace {

void logRefusal(const UIViewController& controller, const char* reason) {
  std::string line = "Cannot present ";
  line.append(controller.className()).append(": ").append(reason);
  host().systemLog().log(line);
}

}  // namespace

void UIViewController::presentViewController(const std::shared_ptr<UIViewController>& controller,
                                             bool animated, Completion completion) {
  const auto presenter = outermost();
  if (controller == nullptr) {
    return;
  }
  if (controller->parent_.lock() != nullptr || controller->presentedBy_.lock() != nullptr ||
      (controller->viewIfLoaded() != nullptr && controller->viewIfLoaded()->window() != nullptr)) {
    logRefusal(*controller, "it is shown elsewhere");
    return;
  }
  if (presenter->presentation_ != nullptr) {
    if (presenter->presentation_->isDismissing()) {
      presenter->waiting_.push_back({controller, animated, std::move(completion)});
    } else {
      logRefusal(*controller, "the presenting screen presents another one");
    }
    return;
  }
  const auto below = presenter->presentedBy_.lock();
  UIWindow* const window = presenter->view_ == nullptr ? nullptr : presenter->view_->window();
  if (window == nullptr || (below != nullptr && below->isDismissing())) {
    logRefusal(*controller, "the presenting screen is not in a window");
    return;
  }
  controller->makePresentationController()->present(presenter, *window, animated,
                                                    std::move(completion));
}

void UIViewController::presentWaiting() {
  // What cannot be presented now waits for the one presented before it, or is refused by then.
  for (Request& request : std::exchange(waiting_, {})) {
    presentViewController(request.controller, request.animated, std::move(request.completion));
  }
}

void UIViewController::dismissViewControllerAnimated(bool animated, Completion completion) {
  const auto self = outermost();
  if (const auto presentation = self->presentation_) {
    presentation->dismiss(animated, std::move(completion));
  } else if (const auto below = self->presentedBy_.lock()) {
    below->dismiss(animated, std::move(completion));
  } else if (completion) {
    completion();
  }
}

void UIViewController::abandonPresented() {
  if (const auto presentation = presentation_) {
    presentation->abandon();
  }
  waiting_.clear();
}

std::shared_ptr<UIViewController> UIViewController::presentedViewController() const {
  const auto& presentation = outermost()->presentation_;
  return presentation == nullptr ? nullptr : presentation->presentedViewController();
}

std::shared_ptr<UIViewController> UIViewController::presentingViewController() const {
  const auto presentation = outermost()->presentedBy_.lock();
  return presentation == nullptr ? nullptr : presentation->presentingViewController();
}

std::shared_ptr<UIPresentationController> UIViewController::makePresentationController() {
  const bool sheet =
      style_ == UIModalPresentationStyle::kPageSheet ||
      (style_ == UIModalPresentationStyle::kAutomatic && systemVersionIsAtLeast(13.0F));
  if (sheet) {
    return std::make_shared<SheetPresentation>(shared_from_this());
  }
  return std::make_shared<UIPresentationController>(shared_from_this());
}

}  // namespace zephyl
