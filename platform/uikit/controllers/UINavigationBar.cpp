#include "platform/uikit/controllers/UINavigationBar.h"

#include "platform/uikit/UIScreen.h"

namespace zephyl {

namespace {

std::shared_ptr<UIView> plainView(const UIColor& color) {
  const auto view = std::make_shared<UIView>();
  view->setBackgroundColor(color);
  view->setUserInteractionEnabled(false);
  return view;
}

}  // namespace

UINavigationBar::UINavigationBar()
    : background_(plainView(
          UIColor::dynamic(UIColor::colorWithWhite(0.976, 1), UIColor::colorWithWhite(0.11, 1)))),
      hairline_(plainView(UIColor::separatorColor())) {
  addSubview(background_);
  addSubview(hairline_);
}

UINavigationBar::~UINavigationBar() = default;

void UINavigationBar::show(const std::shared_ptr<UINavigationItem>& item,
                           const std::shared_ptr<UINavigationItem>& back, bool /*animated*/,
                           bool /*forwards*/) {
  item_ = item;
  back_ = back;
}

void UINavigationBar::setCoveredHeight(CGFloat height) {
  if (coveredHeight_ != height) {
    coveredHeight_ = height;
    setNeedsLayout();
  }
}

void UINavigationBar::layoutSubviews() {
  const CGRect area = bounds();
  const CGFloat line = 1 / UIScreen::mainScreen().scale();
  background_->setFrame(
      CGRectMake(0, -coveredHeight_, area.width(), area.height() + coveredHeight_));
  hairline_->setFrame(CGRectMake(0, area.height(), area.width(), line));
}

}  // namespace zephyl
