// A question or a message in a box over a screen, or a list of choices at its lower edge, to be
// answered before anything else. Main thread.
//
// An answer first dismisses the alert, animated, and then calls the action's handler. Escape is the
// cancel action, or the only one; Return the preferred action, or the last default one.

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/Export.h"
#include "platform/uikit/controllers/UIAlertAction.h"
#include "platform/uikit/controllers/UIViewController.h"

namespace zephyl {

class AlertView;

// With the platform's values.
enum class UIAlertControllerStyle { kActionSheet = 0, kAlert = 1 };

class ZP_EXPORT UIAlertController : public UIViewController {
 public:
  explicit UIAlertController(UIAlertControllerStyle style);
  ~UIAlertController() override;

  // An empty title or message is none.
  [[nodiscard]] static std::shared_ptr<UIAlertController> alertControllerWithTitle(
      const std::string& title, const std::string& message, UIAlertControllerStyle style);

  [[nodiscard]] UIAlertControllerStyle preferredStyle() const { return alertStyle_; }
  void setTitle(const std::string& title) override;
  [[nodiscard]] const std::string& message() const { return message_; }
  // Line breaks at its end keep their room.
  void setMessage(const std::string& message);

  // In the order they were added. A second cancel action is not added.
  [[nodiscard]] const std::vector<UIAlertActionRef>& actions() const { return actions_; }
  void addAction(const UIAlertActionRef& action);
  [[nodiscard]] const UIAlertActionRef& preferredAction() const { return preferredAction_; }
  void setPreferredAction(const UIAlertActionRef& action);

  // As if the action's button was tapped. Nothing for an action that is not enabled, and once an
  // answer was given.
  void choose(const UIAlertActionRef& action);

  void loadView() override;
  void viewWillAppear(bool animated) override;
  [[nodiscard]] std::shared_ptr<UIPresentationController> makePresentationController() override;
  bool accessibilityPerformEscape() override;
  bool pressesBegan(const UIKeyPress& press) override;
  [[nodiscard]] const char* className() const override { return "UIAlertController"; }

 private:
  [[nodiscard]] UIAlertActionRef cancelAction() const;
  [[nodiscard]] UIAlertActionRef defaultAction() const;
  [[nodiscard]] std::shared_ptr<AlertView> alertView() const;
  void contentChanged();

  std::string message_;
  std::vector<UIAlertActionRef> actions_;
  UIAlertActionRef preferredAction_;
  UIAlertControllerStyle alertStyle_;
  bool chosen_ = false;
};

}  // namespace zephyl
