#include "platform/uikit/controllers/NavigationBarContent.h"

#include <algorithm>

#include "platform/uikit/UIScreen.h"
#include "platform/uikit/controllers/BarButton.h"
#include "platform/uikit/text/UILabel.h"

namespace zephyl {

namespace {

constexpr CGFloat kEdge = 8;
constexpr CGFloat kTitleGap = 6;
constexpr CGFloat kUnlimited = 1e5;

class TitleLabel : public UILabel {
 public:
  using UILabel::UILabel;
  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override {
    return UIAccessibilityRole::kHeader;
  }
};

}  // namespace

NavigationBarContent::NavigationBarContent(const std::shared_ptr<UINavigationItem>& item,
                                           const std::shared_ptr<UINavigationItem>& back,
                                           const std::function<void()>& backAction) {
  setOpaque(false);
  const bool showsBack =
      back != nullptr && item->leftBarButtonItems().empty() && !item->hidesBackButton();
  if (showsBack) {
    backButton_ = std::make_shared<BackButton>(back->title(), backAction);
    addSubview(backButton_);
  }
  leading_ = addButtons(item->leftBarButtonItems());
  if (item->titleView() != nullptr) {
    title_ = item->titleView();
  } else {
    titleLabel_ = std::make_shared<TitleLabel>();
    titleLabel_->setFont(UIFont::systemFontOfSize(17, UIFont::Weight::kSemibold));
    titleLabel_->setTextAlignment(NSTextAlignment::kCenter);
    titleLabel_->setLineBreakMode(NSLineBreakMode::kTruncatingTail);
    titleLabel_->setText(item->title());
    title_ = titleLabel_;
  }
  addSubview(title_);
  // The outermost is read last on the trailing side.
  trailing_ = addButtons(item->rightBarButtonItems());
}

NavigationBarContent::~NavigationBarContent() = default;

std::vector<std::shared_ptr<BarButton>> NavigationBarContent::addButtons(
    const UINavigationItem::Items& items) {
  std::vector<std::shared_ptr<BarButton>> buttons;
  buttons.reserve(items.size());
  for (const auto& item : items) {
    buttons.push_back(std::make_shared<BarButton>(item));
    buttons.back()->follow();
    addSubview(buttons.back());
  }
  return buttons;
}

void NavigationBarContent::shiftTitle(CGFloat distance) {
  title_->setTransform(CGAffineTransformMakeTranslation(distance, 0));
}

UIView* NavigationBarContent::hitTest(CGPoint point) {
  UIView* const hit = UIView::hitTest(point);
  return hit == this ? nullptr : hit;
}

CGFloat NavigationBarContent::layoutButtons(const std::vector<std::shared_ptr<BarButton>>& buttons,
                                            bool onTheLeft) {
  const CGRect area = bounds();
  CGFloat used = buttons.empty() ? 0 : kEdge;
  for (const auto& button : buttons) {
    const CGSize size = button->sizeThatFits(area.size);
    const CGFloat x = onTheLeft ? used : area.width() - used - size.width;
    button->setFrame(CGRectMake(x, (area.height() - size.height) / 2, size.width, size.height));
    used += size.width;
  }
  return used;
}

CGFloat NavigationBarContent::layoutBack(bool onTheLeft, CGFloat room) {
  const CGRect area = bounds();
  backButton_->fit(room);
  const CGSize size = backButton_->sizeThatFits(area.size);
  backButton_->setFrame(CGRectMake(onTheLeft ? 0 : area.width() - size.width,
                                   (area.height() - size.height) / 2, size.width, size.height));
  return size.width;
}

void NavigationBarContent::layoutSubviews() {
  const bool mirrored = UIScreen::mainScreen().isRightToLeft();
  CGFloat leading = layoutButtons(leading_, /*onTheLeft=*/!mirrored);
  const CGFloat trailing = layoutButtons(trailing_, /*onTheLeft=*/mirrored);
  if (backButton_ != nullptr) {
    // The title stays in the middle as long as the word "Back" has room.
    const CGFloat beside = (bounds().width() - titleWidth()) / 2 - kTitleGap;
    leading = layoutBack(/*onTheLeft=*/!mirrored, beside);
  }
  const CGFloat left = (mirrored ? trailing : leading) + kTitleGap;
  const CGFloat right = bounds().width() - (mirrored ? leading : trailing) - kTitleGap;
  layoutTitle(left, std::max(right, left));
}

CGFloat NavigationBarContent::titleWidth() const {
  return titleLabel_ == nullptr ? title_->bounds().width()
                                : titleLabel_->sizeThatFits({kUnlimited, kUnlimited}).width;
}

void NavigationBarContent::layoutTitle(CGFloat left, CGFloat right) {
  const CGRect area = bounds();
  const CGFloat width = std::min(titleWidth(), right - left);
  const CGFloat x = std::clamp((area.width() - width) / 2, left, std::max(right - width, left));
  const CGFloat height =
      titleLabel_ == nullptr ? std::min(title_->bounds().height(), area.height()) : area.height();
  title_->setFrame(CGRectMake(x, (area.height() - height) / 2, width, height));
}

}  // namespace zephyl
