// For tests: a screen in a window that shows alerts, and what was answered.

#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UIAlertController.h"
#include "platform/uikit/controls/UIControl.h"
#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/fake/Device.h"

namespace zephyl::test {

class AlertFixture : public ::testing::Test {
 protected:
  AlertFixture() { window_->setRootViewController(root_); }

  std::shared_ptr<UIAlertController> alert(
      const std::string& title = "Error", const std::string& message = "It failed.",
      UIAlertControllerStyle style = UIAlertControllerStyle::kAlert) {
    return UIAlertController::alertControllerWithTitle(title, message, style);
  }
  UIAlertActionRef add(UIAlertController& alert, const std::string& title,
                       UIAlertActionStyle style = UIAlertActionStyle::kDefault) {
    auto action = UIAlertAction::actionWithTitle(title, style, [this](UIAlertAction& chosen) {
      answers_.push_back(chosen.title());
      presentedAtAnswer_ = root_->presentedViewController() != nullptr;
    });
    alert.addAction(action);
    return action;
  }
  void show(const std::shared_ptr<UIAlertController>& alert) {
    root_->presentViewController(alert, /*animated=*/false);
    window_->layoutWindow();
  }
  void settle() { device_.uikit()->displayLink().runUntilIdle(); }
  bool press(UIKey key) { return window_->sendKey({key, "", false, false}); }
  UIControl& button(const std::string& title) {
    for (UIView* const each : viewsNamed(*window_, "UIAlertControllerButton")) {
      if (each->accessibilityLabel() == title) {
        return dynamic_cast<UIControl&>(*each);
      }
    }
    throw std::runtime_error("no button " + title);
  }
  CGRect frameInWindow(const UIView& view) {
    return view.convertRectToView(view.bounds(), nullptr);
  }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<UIViewController> root_ = std::make_shared<UIViewController>();
  std::vector<std::string> answers_;
  bool presentedAtAnswer_ = true;
};

}  // namespace zephyl::test
