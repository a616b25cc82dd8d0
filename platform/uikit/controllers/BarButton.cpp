#include "platform/uikit/controllers/BarButton.h"

#include <algorithm>
#include <utility>

#include "platform/uikit/UIKitText.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/text/UIImageView.h"
#include "platform/uikit/text/UILabel.h"

namespace zephyl {

namespace {

constexpr CGFloat kFontSize = 17;
constexpr CGFloat kPressedAlpha = 0.2;
constexpr CGFloat kPlusSide = 17;
constexpr CGFloat kPlusWidth = 1.7;
constexpr CGFloat kChevronWidth = 2.6;
constexpr CGSize kChevron{10, 18};
// From the button's side to the chevron, and from there to the text.
constexpr CGFloat kChevronGap = 6;
constexpr CGFloat kUnlimited = 1e5;

std::shared_ptr<UILabel> makeLabel(UIFont::Weight weight) {
  auto label = std::make_shared<UILabel>();
  label->setFont(UIFont::systemFontOfSize(kFontSize, weight));
  label->setUserInteractionEnabled(false);
  return label;
}

}  // namespace

BarButton::BarButton(const UIBarButtonItemRef& item) : item_(item) {
  setOpaque(false);
  addAction([this](UIControl&) { UIBarButtonItemRef(item_)->performAction(); }, kTouchUpInside);
  showItem();
}

BarButton::~BarButton() = default;

void BarButton::follow() {
  const std::weak_ptr<UIView> weak = weak_from_this();
  item_->setChangeHandler([weak] {
    if (const auto self = std::static_pointer_cast<BarButton>(weak.lock())) {
      self->showItem();
      if (self->superview() != nullptr) {
        self->superview()->setNeedsLayout();
      }
    }
  });
}

void BarButton::showItem() {
  for (const auto& view : std::vector(subviews())) {
    view->removeFromSuperview();
  }
  label_ = nullptr;
  image_ = nullptr;
  if (item_->customView() != nullptr) {
    addSubview(item_->customView());
  } else if (item_->image() != nullptr) {
    image_ = std::make_shared<UIImageView>(
        item_->image()->imageWithRenderingMode(UIImageRenderingMode::kAlwaysTemplate));
    image_->setContentMode(UIViewContentMode::kCenter);
    addSubview(image_);
  } else if (!item_->title().empty()) {
    const bool done = item_->style() == UIBarButtonItemStyle::kDone;
    label_ = makeLabel(done ? UIFont::Weight::kSemibold : UIFont::Weight::kRegular);
    label_->setText(item_->title());
    addSubview(label_);
  }
  setEnabled(item_->isEnabled());
  showState();
  setNeedsLayout();
}

bool BarButton::isAccessibilityElement() const {
  return item_->customView() == nullptr;
}

CGSize BarButton::sizeThatFits(CGSize /*size*/) const {
  CGFloat width = 0;
  if (item_->customView() != nullptr) {
    width = item_->customView()->bounds().width();
  } else if (image_ != nullptr) {
    width = item_->image()->size().width + 2 * kPadding;
  } else if (label_ != nullptr) {
    width = label_->sizeThatFits({kUnlimited, kSide}).width + 2 * kPadding;
  }
  return {std::max(width, kSide), kSide};
}

void BarButton::layoutSubviews() {
  const CGRect area = bounds();
  if (item_->customView() != nullptr) {
    UIView& custom = *item_->customView();
    const CGSize size = custom.bounds().size;
    custom.setFrame({{area.midX() - size.width / 2, area.midY() - size.height / 2}, size});
  }
  if (image_ != nullptr) {
    image_->setFrame(area);
  }
  if (label_ != nullptr) {
    const CGFloat width = std::min(label_->sizeThatFits({kUnlimited, kSide}).width, area.width());
    label_->setFrame(CGRectMake((area.width() - width) / 2, 0, width, area.height()));
  }
}

void BarButton::drawRect(CGContext& context, const CGRect& rect) {
  if (item_->systemItem() != UIBarButtonSystemItem::kAdd) {
    return;
  }
  const CGFloat half = kPlusSide / 2;
  const CGFloat x = rect.midX();
  const CGFloat y = rect.midY();
  context.stroke(Polyline{{{x - half, y}, {x + half, y}}}, kPlusWidth, color());
  context.stroke(Polyline{{{x, y - half}, {x, y + half}}}, kPlusWidth, color());
}

UIColor BarButton::color() const {
  const UIColor color = isEnabled() ? tintColor() : UIColor::tertiaryLabelColor();
  return color;
}

void BarButton::tintColorDidChange() {
  showState();
}

void BarButton::stateDidChange() {
  showState();
}

void BarButton::showState() {
  if (label_ != nullptr) {
    label_->setTextColor(color());
  }
  if (image_ != nullptr) {
    image_->setTintColor(color());
  }
  setAlpha(isHighlighted() ? kPressedAlpha : 1);
  setNeedsDisplay();
}

std::string BarButton::derivedAccessibilityLabel() const {
  return item_->accessibilityLabel();
}

BackButton::BackButton(const std::string& title, std::function<void()> action)
    : title_(title), label_(makeLabel(UIFont::Weight::kRegular)) {
  setOpaque(false);
  addAction(
      [action = std::move(action)](UIControl&) {
        // Going back ends this button, and this function with it.
        const auto call = action;
        if (call) {
          call();
        }
      },
      kTouchUpInside);
  label_->setText(title);
  addSubview(label_);
  label_->setTextColor(tintColor());
}

BackButton::~BackButton() = default;

CGFloat BackButton::widthOf(const std::string& text) const {
  UILabel label;
  label.setFont(label_->font());
  label.setText(text);
  return BarButton::kPadding + kChevron.width + kChevronGap +
         label.sizeThatFits({kUnlimited, BarButton::kSide}).width;
}

void BackButton::fit(CGFloat width) {
  const std::string plain = uikitText("Back");
  std::string text = title_.empty() ? plain : title_;
  if (widthOf(text) > width) {
    text = plain;
  }
  if (widthOf(text) > width) {
    text.clear();
  }
  label_->setText(text);
}

CGSize BackButton::sizeThatFits(CGSize /*size*/) const {
  return {std::max(widthOf(label_->text()), BarButton::kSide), BarButton::kSide};
}

void BackButton::layoutSubviews() {
  const CGRect area = bounds();
  const CGFloat start = BarButton::kPadding + kChevron.width + kChevronGap;
  const CGFloat width = std::max(area.width() - start, 0.0);
  const bool mirrored = UIScreen::mainScreen().isRightToLeft();
  label_->setFrame(CGRectMake(mirrored ? 0 : start, 0, width, area.height()));
}

void BackButton::drawRect(CGContext& context, const CGRect& rect) {
  const bool mirrored = UIScreen::mainScreen().isRightToLeft();
  const CGFloat near = BarButton::kPadding;
  const CGFloat far = near + kChevron.width;
  const auto across = [&](CGFloat x) { return mirrored ? rect.width() - x : x; };
  const CGFloat y = rect.midY();
  const CGFloat half = kChevron.height / 2;
  context.stroke(Polyline{{{across(far), y - half}, {across(near), y}, {across(far), y + half}}},
                 kChevronWidth, tintColor());
}

void BackButton::tintColorDidChange() {
  label_->setTextColor(tintColor());
  setNeedsDisplay();
}

void BackButton::stateDidChange() {
  setAlpha(isHighlighted() ? kPressedAlpha : 1);
}

std::string BackButton::derivedAccessibilityLabel() const {
  return title_.empty() ? uikitText("Back") : title_;
}

}  // namespace zephyl
