#include "platform/uikit/controllers/UINavigationBar.h"

#include <utility>

#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIViewAnimation.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/NavigationBarContent.h"

namespace zephyl {

namespace {

// How far titles move, of the bar's width.
constexpr CGFloat kSlide = 0.4;
constexpr double kSlideDuration = 0.35;
constexpr double kChangeDuration = 0.2;

std::shared_ptr<UIView> plainView(const UIColor& color) {
  auto view = std::make_shared<UIView>();
  view->setBackgroundColor(color);
  view->setUserInteractionEnabled(false);
  return view;
}

// One content gives way to another, whose title comes from `distance` away.
void fade(const std::shared_ptr<NavigationBarContent>& before,
          const std::shared_ptr<NavigationBarContent>& after, CGFloat distance) {
  before->setUserInteractionEnabled(false);
  if (after != nullptr) {
    performWithoutAnimation([&] {
      after->setAlpha(0);
      after->shiftTitle(distance);
    });
  }
  animateWithDuration(
      distance == 0 ? kChangeDuration : kSlideDuration,
      [&] {
        before->setAlpha(0);
        before->shiftTitle(-distance);
        if (after != nullptr) {
          after->setAlpha(1);
          after->shiftTitle(0);
        }
      },
      [before](bool) { before->removeFromSuperview(); });
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
                           const std::shared_ptr<UINavigationItem>& back, bool animated,
                           bool forwards) {
  if (item_ != nullptr && item_ != item) {
    item_->setChangeHandler(nullptr);
  }
  item_ = item;
  back_ = back;
  if (item_ != nullptr) {
    const std::weak_ptr<UIView> weak = weak_from_this();
    item_->setChangeHandler([weak](bool animatedChange) {
      if (const auto self = std::static_pointer_cast<UINavigationBar>(weak.lock())) {
        self->replaceContent(animatedChange, /*distance=*/0);
      }
    });
  }
  const bool towardsLeft = forwards != UIScreen::mainScreen().isRightToLeft();
  const CGFloat distance = kSlide * bounds().width();
  replaceContent(animated, towardsLeft ? distance : -distance);
}

void UINavigationBar::replaceContent(bool animated, CGFloat distance) {
  const auto before = std::exchange(content_, nullptr);
  if (item_ != nullptr) {
    content_ = std::make_shared<NavigationBarContent>(item_, back_, [weak = weak_from_this()] {
      if (const auto self = std::static_pointer_cast<UINavigationBar>(weak.lock());
          self != nullptr && self->backAction_) {
        std::function<void()>(self->backAction_)();
      }
    });
    performWithoutAnimation([&] {
      content_->setFrame(bounds());
      addSubview(content_);
      content_->layoutIfNeeded();
    });
  }
  if (before != nullptr && (!animated || window() == nullptr)) {
    before->removeFromSuperview();
  } else if (before != nullptr) {
    fade(before, content_, distance);
  }
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
  if (content_ != nullptr) {
    content_->setFrame(area);
  }
  hairline_->setFrame(CGRectMake(0, area.height(), area.width(), line));
}

}  // namespace zephyl
