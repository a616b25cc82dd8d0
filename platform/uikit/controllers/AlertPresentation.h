// How alerts come and go: a box in the middle that fades in, or choices that slide up from below.
// Main thread.

#pragma once

#include <memory>

#include "platform/uikit/controllers/UIPresentationController.h"

namespace zephyl {

class AlertPresentation : public UIPresentationController {
 public:
  using UIPresentationController::UIPresentationController;

  [[nodiscard]] UIEdgeInsets safeAreaInsets() const override { return {}; }

 protected:
  [[nodiscard]] CGRect frameOfPresentedView() const override;
  [[nodiscard]] bool shouldRemovePresentersView() const override { return false; }
  [[nodiscard]] double duration(bool appearing) const override;
  void presentationWillBegin() override;
  void presentationHasBegun() override;
  void showGone(bool appearing) override;
  void showPresented() override;

  // What is left for the alert.
  [[nodiscard]] CGRect availableArea() const;

 private:
  std::shared_ptr<UIView> dimming_;
};

// A tap beside the choices is the cancel action.
class ActionSheetPresentation : public AlertPresentation {
 public:
  using AlertPresentation::AlertPresentation;

 protected:
  [[nodiscard]] CGRect frameOfPresentedView() const override;
  [[nodiscard]] double duration(bool appearing) const override;
  void touchedOutside() override;
  void showGone(bool appearing) override;
};

}  // namespace zephyl
