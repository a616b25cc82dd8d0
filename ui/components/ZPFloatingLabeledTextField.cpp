#include "ui/components/ZPFloatingLabeledTextField.h"

#include "platform/foundation/Value.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIViewAnimation.h"

namespace zephyl {
namespace {

constexpr CGFloat kFontSize = 12;
constexpr double kDuration = 0.3;
// Where the label is while it is shown.
constexpr CGFloat kShownY = 2;

// Empty for what is no text.
std::string textOf(const Dictionary& coder, std::string_view key) {
  const Value* const value = coder.find(key);
  const std::string* const text = value == nullptr ? nullptr : value->ifString();
  return text == nullptr ? std::string() : *text;
}

CGRect lowered(const CGRect& rect, CGFloat by) {
  return CGRectMake(rect.x(), rect.y() + by, rect.width(), rect.height() - by);
}

void move(UIView& view, CGPoint to) {
  view.setFrame({to, view.frame().size});
}

}  // namespace

ZPFloatingLabeledTextField::ZPFloatingLabeledTextField(const CGRect& frame) : UITextField(frame) {
  commonInit();
}

ZPFloatingLabeledTextField::ZPFloatingLabeledTextField(const Dictionary& coder) {
  commonInit();
  setText(textOf(coder, "UIText"));
  ZPFloatingLabeledTextField::setPlaceholder(textOf(coder, "UIPlaceholder"));
}

void ZPFloatingLabeledTextField::commonInit() {
  floatingLabel_ = std::make_shared<UILabel>();
  floatingLabel_->setAlpha(0);
  addSubview(floatingLabel_);
  floatingLabelFont_ = UIFont::boldSystemFontOfSize(kFontSize);
  floatingLabelTextColor_ = UIColor::grayColor();
}

void ZPFloatingLabeledTextField::setFloatingLabelYPadding(std::optional<CGFloat> padding) {
  if (padding) {
    padding = finite(*padding);
  }
  if (padding != floatingLabelYPadding_) {
    floatingLabelYPadding_ = padding;
    setNeedsLayout();
    setNeedsDisplay();
  }
}

void ZPFloatingLabeledTextField::setFloatingLabelFont(const std::optional<UIFont>& font) {
  if (font != floatingLabelFont_) {
    floatingLabelFont_ = font;
    setNeedsLayout();
  }
}

void ZPFloatingLabeledTextField::setFloatingLabelTextColor(const UIColor& color) {
  if (!(color == floatingLabelTextColor_)) {
    floatingLabelTextColor_ = color;
    setNeedsLayout();
  }
}

void ZPFloatingLabeledTextField::setFloatingLabelActiveTextColor(
    const std::optional<UIColor>& color) {
  if (color != floatingLabelActiveTextColor_) {
    floatingLabelActiveTextColor_ = color;
    setNeedsLayout();
  }
}

void ZPFloatingLabeledTextField::setPlaceholder(std::string_view placeholder) {
  UITextField::setPlaceholder(placeholder);
  floatingLabel_->setText(this->placeholder());
  floatingLabel_->sizeToFit();
  move(*floatingLabel_, {labelX(), labelHeight()});
  // A label that is shown goes up again.
  setNeedsLayout();
}

CGRect ZPFloatingLabeledTextField::textRectForBounds(const CGRect& bounds) const {
  return lowered(UITextField::textRectForBounds(bounds), labelHeight());
}

CGRect ZPFloatingLabeledTextField::editingRectForBounds(const CGRect& bounds) const {
  return lowered(UITextField::editingRectForBounds(bounds), labelHeight());
}

CGRect ZPFloatingLabeledTextField::clearButtonRectForBounds(const CGRect& bounds) const {
  return CGRectOffset(UITextField::clearButtonRectForBounds(bounds), 0, labelHeight() / 2);
}

void ZPFloatingLabeledTextField::layoutSubviews() {
  UITextField::layoutSubviews();
  if (floatingLabelFont_ && !(floatingLabel_->font() == *floatingLabelFont_)) {
    floatingLabel_->setFont(*floatingLabelFont_);
    // The text stands lower by another height now.
    setNeedsDisplay();
  }
  if (isFirstResponder()) {
    setLabelActiveColor();
  } else {
    floatingLabel_->setTextColor(floatingLabelTextColor_);
  }
  if (text().empty()) {
    hideFloatingLabel();
  } else {
    showFloatingLabel();
  }
}

void ZPFloatingLabeledTextField::tintColorDidChange() {
  UITextField::tintColorDidChange();
  setNeedsLayout();
}

void ZPFloatingLabeledTextField::setLabelActiveColor() {
  floatingLabel_->setTextColor(floatingLabelActiveTextColor_.value_or(tintColor()));
}

void ZPFloatingLabeledTextField::showFloatingLabel() {
  setLabelOriginForTextAlignment();
  UILabel& label = *floatingLabel_;
  animateWithDuration(kDuration, 0, kAnimationBeginFromCurrentState | kAnimationCurveEaseOut, [&] {
    label.setAlpha(1);
    move(label, {label.frame().x(), kShownY});
  });
}

void ZPFloatingLabeledTextField::hideFloatingLabel() {
  setLabelOriginForTextAlignment();
  const std::weak_ptr<UIView> weakSelf = weak_from_this();
  animateWithDuration(
      kDuration, 0, kAnimationBeginFromCurrentState | kAnimationCurveEaseIn,
      [&] { floatingLabel_->setAlpha(0); },
      [this, weakSelf](bool /*finished*/) {
        const auto self = weakSelf.lock();
        // It may have been shown again meanwhile, or a fade that began earlier may still run.
        if (self != nullptr && floatingLabel_->layer()->presentation().opacity <= 0) {
          move(*floatingLabel_, {floatingLabel_->frame().x(), labelHeight()});
        }
      });
}

void ZPFloatingLabeledTextField::setLabelOriginForTextAlignment() {
  move(*floatingLabel_, {labelX(), floatingLabel_->frame().y()});
}

CGFloat ZPFloatingLabeledTextField::labelHeight() const {
  return floatingLabel_->font().lineHeight() + floatingLabelYPadding_.value_or(0);
}

CGFloat ZPFloatingLabeledTextField::labelX() const {
  const CGFloat free = bounds().width() - floatingLabel_->frame().width();
  const bool rightToLeft = UIScreen::mainScreen().userInterfaceLayoutDirection() ==
                           UIUserInterfaceLayoutDirection::kRightToLeft;
  switch (textAlignment()) {
    case NSTextAlignment::kCenter:
      return free / 2;
    case NSTextAlignment::kRight:
      return free;
    case NSTextAlignment::kNatural:
      return rightToLeft ? free : 0;
    default:
      return 0;
  }
}

}  // namespace zephyl
