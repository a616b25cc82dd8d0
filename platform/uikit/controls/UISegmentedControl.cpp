#include "platform/uikit/controls/UISegmentedControl.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/uikit/CGContext.h"
#include "platform/uikit/UIKitHost.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIViewAnimation.h"

namespace zephyl {
namespace {

constexpr CGFloat kHeight = 32;
constexpr CGFloat kTextSize = 13;
constexpr CGFloat kCornerRadius = 8.91;
// Between the ground and the raised segment.
constexpr CGFloat kMargin = 2;
constexpr CGFloat kRaisedCornerRadius = 6.93;
constexpr CGFloat kTitleMargin = 10;
constexpr CGFloat kSeparatorInset = 6;
constexpr CGFloat kPressedAlpha = 0.2;
constexpr CGFloat kPressedScale = 0.95;
constexpr double kSlidingTime = 0.25;

UIColor groundColor() {
  const auto gray = [](CGFloat alpha) {
    return UIColor::colorWithRed(118 / 255.0, 118 / 255.0, 128 / 255.0, alpha);
  };
  return UIColor::dynamic(gray(0.12), gray(0.24));
}

UIColor raisedColor() {
  return UIColor::dynamic(UIColor::whiteColor(),
                          UIColor::colorWithRed(99 / 255.0, 99 / 255.0, 102 / 255.0, 1));
}

}  // namespace

// One title: drawn here, touched in the control.
class UISegmentedControl::Segment : public UIView {
 public:
  Segment(UISegmentedControl* control, std::string title)
      : control_(control), title_(std::move(title)) {
    setOpaque(false);
    setUserInteractionEnabled(false);
  }

  [[nodiscard]] const std::string& title() const { return title_; }
  void setTitle(const std::string& title) {
    if (title_ != title) {
      title_ = title;
      setNeedsDisplay();
    }
  }
  void leaveControl() {
    control_ = nullptr;
    removeFromSuperview();
  }
  void show(bool selected, bool pressed, bool enabled) {
    if (selected_ != selected || enabled_ != enabled) {
      selected_ = selected;
      enabled_ = enabled;
      setNeedsDisplay();
    }
    setAlpha(pressed && !selected ? kPressedAlpha : 1);
  }
  [[nodiscard]] TextLayoutRef layout(CGFloat width, UIFont::Weight weight) const {
    const UIColor color = enabled_ ? UIColor::labelColor() : UIColor::tertiaryLabelColor();
    const NSAttributedString text(title_, {UIFont::systemFontOfSize(kTextSize, weight), color});
    return uikitHost().textSystem().layout(
        text, {{width, 1e6}, 1, NSLineBreakMode::kTruncatingTail, NSTextAlignment::kCenter});
  }
  void drawRect(CGContext& context, const CGRect& rect) override {
    const CGFloat width = std::max(0.0, rect.width() - 4);
    const auto text =
        layout(width, selected_ ? UIFont::Weight::kSemibold : UIFont::Weight::kMedium);
    context.draw(*text, {(rect.width() - width) / 2, (rect.height() - text->size().height) / 2});
  }

  [[nodiscard]] bool isAccessibilityElement() const override { return true; }
  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override {
    return UIAccessibilityRole::kSegment;
  }
  [[nodiscard]] UIAccessibilityState accessibilityState() const override {
    UIAccessibilityState state;
    state.enabled = enabled_;
    state.selected = selected_;
    state.focused = selected_ && control_ != nullptr && control_->isFirstResponder();
    return state;
  }
  bool accessibilityActivate() override {
    if (control_ == nullptr || !control_->isEnabled()) {
      return false;
    }
    const auto& all = control_->segments_;
    const auto found = std::find_if(all.begin(), all.end(),
                                    [this](const auto& each) { return each.get() == this; });
    control_->selectByUser(static_cast<int>(found - all.begin()));
    return true;
  }
  [[nodiscard]] const char* className() const override { return "UISegment"; }
  [[nodiscard]] std::string describe() const override { return title_; }

 protected:
  [[nodiscard]] std::string derivedAccessibilityLabel() const override { return title_; }

 private:
  // Null once it is none of its segments any more.
  UISegmentedControl* control_;
  std::string title_;
  bool selected_ = false;
  bool enabled_ = true;
};

UISegmentedControl::UISegmentedControl(const CGRect& frame)
    : UIControl(frame), raised_(std::make_shared<CALayer>()) {
  setOpaque(false);
  // The ground is a layer of its own: the background is the screen's to set.
  ground_ = std::make_shared<CALayer>();
  ground_->setBackgroundColor(groundColor());
  ground_->setCornerRadius(kCornerRadius);
  raised_->setBackgroundColor(raisedColor());
  raised_->setCornerRadius(kRaisedCornerRadius);
  raised_->setShadow({{0, 3}, 8, UIColor::colorWithWhite(0, 0.12)});
  raised_->setHidden(true);
  layer()->addSublayer(ground_);
  layer()->addSublayer(raised_);
}

UISegmentedControl::UISegmentedControl(const std::vector<std::string>& items)
    : UISegmentedControl(CGRect()) {
  setItems(items);
  UIView::setFrame({{0, 0}, wantedSize()});
}

UISegmentedControl::~UISegmentedControl() {
  for (const auto& segment : segments_) {
    segment->leaveControl();
  }
}

void UISegmentedControl::setItems(const std::vector<std::string>& items) {
  for (const auto& segment : std::exchange(segments_, {})) {
    segment->leaveControl();
  }
  for (const auto& separator : std::exchange(separators_, {})) {
    separator->removeFromSuperlayer();
  }
  segments_.reserve(items.size());
  for (std::size_t index = 0; index < items.size(); ++index) {
    if (index > 0) {
      separators_.push_back(std::make_shared<CALayer>());
      separators_.back()->setBackgroundColor(UIColor::separatorColor());
      layer()->insertSublayer(separators_.back(), index);
    }
    segments_.push_back(std::make_shared<Segment>(this, items[index]));
    addSubview(segments_.back());
  }
  selected_ = pressed_ = kNoSegment;
  dragging_ = false;
  show(/*animated=*/false);
  setNeedsLayout();
}

std::string UISegmentedControl::titleForSegmentAtIndex(int index) const {
  const bool known = index >= 0 && index < numberOfSegments();
  return known ? segments_[static_cast<std::size_t>(index)]->title() : std::string();
}

void UISegmentedControl::setTitle(const std::string& title, int index) {
  if (index >= 0 && index < numberOfSegments()) {
    segments_[static_cast<std::size_t>(index)]->setTitle(title);
  }
}

void UISegmentedControl::setSelectedSegmentIndex(int index) {
  const int wanted = index >= 0 && index < numberOfSegments() ? index : kNoSegment;
  if (selected_ == wanted) {
    return;
  }
  selected_ = wanted;
  show(/*animated=*/false);
}

CGRect UISegmentedControl::segmentFrame(int index) const {
  const int count = std::max(1, numberOfSegments());
  const CGFloat width = bounds().width() / count;
  const int place = UIScreen::mainScreen().isRightToLeft() ? count - 1 - index : index;
  return CGRectMake(bounds().x() + width * place, bounds().y(), width, bounds().height());
}

int UISegmentedControl::segmentAt(CGFloat x) const {
  const int count = numberOfSegments();
  if (count == 0 || bounds().width() <= 0) {
    return kNoSegment;
  }
  const CGFloat place = std::floor((x - bounds().x()) / bounds().width() * count);
  const int index = static_cast<int>(std::clamp(place, 0.0, static_cast<CGFloat>(count - 1)));
  return UIScreen::mainScreen().isRightToLeft() ? count - 1 - index : index;
}

void UISegmentedControl::layoutSubviews() {
  ground_->setFrame(bounds());
  for (int index = 0; index < numberOfSegments(); ++index) {
    segments_[static_cast<std::size_t>(index)]->setFrame(segmentFrame(index));
  }
  show(/*animated=*/false);
}

void UISegmentedControl::show(bool animated) {
  const int shown = dragging_ ? pressed_ : selected_;
  const auto changes = [this, shown] {
    raised_->setTransform(CGAffineTransformIdentity);
    if (shown != kNoSegment) {
      raised_->setFrame(CGRectInset(segmentFrame(shown), kMargin, kMargin));
    }
    if (dragging_) {
      raised_->setTransform(CGAffineTransformMakeScale(kPressedScale, kPressedScale));
    }
    raised_->setHidden(shown == kNoSegment);
    for (int index = 0; index < numberOfSegments(); ++index) {
      segments_[static_cast<std::size_t>(index)]->show(index == shown, index == pressed_,
                                                       isEnabled());
    }
    showSeparators(shown);
  };
  if (animated) {
    animateWithDuration(kSlidingTime, 0,
                        kAnimationAllowUserInteraction | kAnimationBeginFromCurrentState, changes);
  } else {
    performWithoutAnimation(changes);
  }
}

void UISegmentedControl::showSeparators(int shown) {
  for (int index = 1; index < numberOfSegments(); ++index) {
    const auto& separator = separators_[static_cast<std::size_t>(index - 1)];
    const CGRect left = segmentFrame(index);
    const CGFloat x = UIScreen::mainScreen().isRightToLeft() ? left.maxX() : left.x();
    separator->setFrame(CGRectMake(x - 0.5, bounds().y() + kSeparatorInset, 1,
                                   std::max(0.0, bounds().height() - 2 * kSeparatorInset)));
    const bool besideRaised = index == shown || index - 1 == shown;
    separator->setOpacity(besideRaised ? 0 : 1);
  }
}

void UISegmentedControl::stateDidChange() {
  show(/*animated=*/false);
}

void UISegmentedControl::beginTracking(CGPoint location) {
  pressed_ = segmentAt(location.x);
  dragging_ = pressed_ != kNoSegment && pressed_ == selected_;
  show(/*animated=*/true);
}

void UISegmentedControl::continueTracking(CGPoint location) {
  const int under = dragging_ || isNear(location) ? segmentAt(location.x) : kNoSegment;
  if (std::exchange(pressed_, under) != under) {
    show(/*animated=*/true);
  }
}

void UISegmentedControl::endTracking(CGPoint location) {
  const bool follows = std::exchange(dragging_, false) || isNear(location);
  const int wanted = follows ? segmentAt(location.x) : selected_;
  pressed_ = kNoSegment;
  selectByUser(wanted);
}

void UISegmentedControl::cancelTracking() {
  dragging_ = false;
  pressed_ = kNoSegment;
  show(/*animated=*/true);
}

void UISegmentedControl::selectByUser(int index) {
  const auto self = weak_from_this().lock();
  const bool changed = std::exchange(selected_, index) != index;
  show(/*animated=*/true);
  if (changed) {
    sendActionsForControlEvents(kValueChanged);
  }
}

bool UISegmentedControl::pressesBegan(const UIKeyPress& press) {
  const bool left = press.key == UIKey::kLeft;
  if (!isEnabled() || numberOfSegments() == 0 || (!left && press.key != UIKey::kRight)) {
    return UIControl::pressesBegan(press);
  }
  const int step = left != UIScreen::mainScreen().isRightToLeft() ? -1 : 1;
  const int next = selected_ == kNoSegment ? 0 : selected_ + step;
  selectByUser(std::clamp(next, 0, numberOfSegments() - 1));
  return true;
}

CGSize UISegmentedControl::wantedSize() const {
  CGFloat widest = 0;
  for (const auto& segment : segments_) {
    widest = std::max(widest, segment->layout(1e6, UIFont::Weight::kSemibold)->size().width);
  }
  return {std::ceil(widest + 2 * kTitleMargin) * numberOfSegments(), kHeight};
}

CGSize UISegmentedControl::sizeThatFits(CGSize /*size*/) const {
  return wantedSize();
}

CGSize UISegmentedControl::intrinsicContentSize() const {
  return wantedSize();
}

}  // namespace zephyl
