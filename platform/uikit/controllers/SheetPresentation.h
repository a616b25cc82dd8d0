// A screen as a card over the one that presents it, which stays, dimmed, and is seen above the
// card. Main thread.

#pragma once

#include <memory>

#include "platform/uikit/controllers/UIPresentationController.h"

namespace zephyl {

class SheetPresentation : public UIPresentationController {
 public:
  using UIPresentationController::UIPresentationController;

  // The card begins below what covers the upper edge.
  [[nodiscard]] UIEdgeInsets safeAreaInsets() const override;

 protected:
  [[nodiscard]] CGRect frameOfPresentedView() const override;
  [[nodiscard]] bool shouldRemovePresentersView() const override { return false; }
  void presentationWillBegin() override;
  void presentationDidEnd() override;
  void showGone(bool appearing) override;
  void showPresented() override;

 private:
  std::shared_ptr<UIView> dimming_;
};

}  // namespace zephyl
