#include "platform/uikit/controllers/DimmingView.h"

namespace zephyl {

namespace {

class DimmingView : public UIView {
 public:
  using UIView::UIView;
  [[nodiscard]] const char* className() const override { return "UIDimmingView"; }
};

}  // namespace

std::shared_ptr<UIView> makeDimmingView(const CGRect& frame) {
  const auto view = std::make_shared<DimmingView>(frame);
  view->setAutoresizingMask(kFlexibleWidth | kFlexibleHeight);
  view->setBackgroundColor(
      UIColor::dynamic(UIColor::colorWithWhite(0, 0.2), UIColor::colorWithWhite(0, 0.48)));
  view->setOpaque(false);
  view->setUserInteractionEnabled(false);
  return view;
}

}  // namespace zephyl
