#include "platform/uikit/controls/UIButton.h"

#include <algorithm>

#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIViewAnimation.h"
#include "platform/uikit/text/UIImageView.h"
#include "platform/uikit/text/UILabel.h"

namespace zephyl {
namespace {

constexpr CGFloat kSystemFontSize = 15;
constexpr CGFloat kCustomFontSize = 18;
// Above and below a title, where no insets are set.
constexpr CGFloat kTitleMargin = 6;
constexpr CGFloat kMinimumWidth = 30;
constexpr CGFloat kPressedSystemAlpha = 0.2;
constexpr CGFloat kPressedImageAlpha = 0.3;
constexpr CGFloat kDisabledImageAlpha = 0.5;
constexpr double kReleaseTime = 0.25;

bool isRightToLeft() {
  return UIScreen::mainScreen().isRightToLeft();
}

UIEdgeInsets inDirection(const UIEdgeInsets& insets) {
  return isRightToLeft() ? UIEdgeInsets{insets.top, insets.right, insets.bottom, insets.left}
                         : insets;
}

UIEdgeInsets finiteInsets(const UIEdgeInsets& insets) {
  return {finite(insets.top), finite(insets.left), finite(insets.bottom), finite(insets.right)};
}

// Moved and shrunk, as an inset on one side alone does.
CGRect insetWithin(const CGRect& rect, const UIEdgeInsets& insets) {
  const UIEdgeInsets by = inDirection(insets);
  return CGRectOffset(rect, (by.left - by.right) / 2, (by.top - by.bottom) / 2);
}

}  // namespace

UIButton::UIButton(UIButtonType type, const CGRect& frame)
    : UIControl(frame),
      type_(type),
      titleLabel_(std::make_shared<UILabel>()),
      imageView_(std::make_shared<UIImageView>()) {
  setOpaque(false);
  const bool isSystem = type == UIButtonType::kSystem;
  titleLabel_->setFont(UIFont::systemFontOfSize(isSystem ? kSystemFontSize : kCustomFontSize));
  titleLabel_->setLineBreakMode(NSLineBreakMode::kTruncatingMiddle);
  titleLabel_->setTextAlignment(NSTextAlignment::kCenter);
  addSubview(imageView_);
  addSubview(titleLabel_);
  contentChanged();
}

UIButton::~UIButton() = default;

std::shared_ptr<UIButton> UIButton::buttonWithType(UIButtonType type) {
  return std::make_shared<UIButton>(type);
}

template <class T>
std::optional<T> UIButton::find(std::optional<T> Content::*member, unsigned state) const {
  // Of a combined state the disabled part counts most; without any of its parts, it is the normal
  // state.
  const auto own = [&](unsigned each) -> std::optional<T> {
    const auto found = contents_.find(each);
    return found == contents_.end() ? std::nullopt : found->second.*member;
  };
  if (auto whole = own(state)) {
    return whole;
  }
  for (const unsigned part :
       {kControlStateDisabled, kControlStateHighlighted, kControlStateSelected}) {
    if ((state & part) != 0) {
      if (auto partly = own(part)) {
        return partly;
      }
    }
  }
  return own(kControlStateNormal);
}

void UIButton::setTitle(const std::string& title, unsigned state) {
  contents_[state].title = title;
  contentChanged();
}

void UIButton::setAttributedTitle(const NSAttributedString& title, unsigned state) {
  contents_[state].attributedTitle = title;
  contentChanged();
}

void UIButton::setTitleColor(const UIColor& color, unsigned state) {
  contents_[state].titleColor = color;
  contentChanged();
}

void UIButton::setImage(const UIImageRef& image, unsigned state) {
  contents_[state].image = image;
  contentChanged();
}

std::string UIButton::titleForState(unsigned state) const {
  if (const auto attributed = find(&Content::attributedTitle, state)) {
    return attributed->string();
  }
  return find(&Content::title, state).value_or("");
}

UIImageRef UIButton::imageForState(unsigned state) const {
  return find(&Content::image, state).value_or(nullptr);
}

UIColor UIButton::currentTitleColor() const {
  const auto own = contents_.find(state());
  if (own != contents_.end() && own->second.titleColor) {
    return *own->second.titleColor;
  }
  if (!isEnabled() && type_ == UIButtonType::kSystem) {
    return UIColor::tertiaryLabelColor();
  }
  if (const auto color = find(&Content::titleColor, state())) {
    return *color;
  }
  return type_ == UIButtonType::kSystem ? tintColor() : UIColor::whiteColor();
}

void UIButton::setTitleFont(const UIFont& font) {
  titleLabel_->setFont(font);
  contentChanged();
}

UIFont UIButton::titleFont() const {
  return titleLabel_->font();
}

void UIButton::setContentEdgeInsets(const UIEdgeInsets& insets) {
  contentInsets_ = finiteInsets(insets);
  setNeedsLayout();
}

void UIButton::setTitleEdgeInsets(const UIEdgeInsets& insets) {
  titleInsets_ = finiteInsets(insets);
  setNeedsLayout();
}

void UIButton::setImageEdgeInsets(const UIEdgeInsets& insets) {
  imageInsets_ = finiteInsets(insets);
  setNeedsLayout();
}

void UIButton::setContentHorizontalAlignment(UIControlContentHorizontalAlignment alignment) {
  alignment_ = alignment;
  setNeedsLayout();
}

void UIButton::contentChanged() {
  performWithoutAnimation([this] { showState(); });
}

void UIButton::stateDidChange() {
  // Dims at once, and lights up again slowly.
  if (isHighlighted() || window() == nullptr) {
    performWithoutAnimation([this] { showState(); });
  } else {
    animateWithDuration(kReleaseTime, 0,
                        kAnimationAllowUserInteraction | kAnimationBeginFromCurrentState,
                        [this] { showState(); });
  }
}

void UIButton::tintColorDidChange() {
  showState();
}

void UIButton::showState() {
  if (const auto attributed = find(&Content::attributedTitle, state())) {
    titleLabel_->setAttributedText(*attributed);
  } else {
    titleLabel_->setText(currentTitle());
    titleLabel_->setTextColor(currentTitleColor());
  }
  UIImageRef image = currentImage();
  if (image != nullptr && type_ == UIButtonType::kSystem &&
      image->renderingMode() == UIImageRenderingMode::kAutomatic) {
    image = image->imageWithRenderingMode(UIImageRenderingMode::kAlwaysTemplate);
  }
  imageView_->setImage(image);
  const bool system = type_ == UIButtonType::kSystem;
  const bool ownHighlight = contents_.contains(kControlStateHighlighted);
  const bool dims = isHighlighted() && !ownHighlight;
  titleLabel_->setAlpha(dims && system ? kPressedSystemAlpha : 1);
  const CGFloat pressed = system ? kPressedSystemAlpha : kPressedImageAlpha;
  imageView_->setAlpha(dims ? pressed : isEnabled() ? 1 : kDisabledImageAlpha);
  setNeedsLayout();
}

CGSize UIButton::titleSize() const {
  return currentTitle().empty() ? CGSize() : titleLabel_->sizeThatFits({1e6, 1e6});
}

CGSize UIButton::imageSize() const {
  const UIImageRef image = currentImage();
  return image == nullptr ? CGSize() : image->size();
}

void UIButton::layoutSubviews() {
  const CGRect content = UIEdgeInsetsInsetRect(bounds(), inDirection(contentInsets_));
  const CGSize image = imageSize();
  CGSize title = titleSize();
  title.width = std::clamp(content.width() - image.width, 0.0, title.width);
  const CGFloat used = image.width + title.width;

  using Alignment = UIControlContentHorizontalAlignment;
  const bool rightToLeft = isRightToLeft();
  const bool atRight = alignment_ == Alignment::kRight ||
                       alignment_ == (rightToLeft ? Alignment::kLeading : Alignment::kTrailing);
  const bool centered = alignment_ == Alignment::kCenter || alignment_ == Alignment::kFill;
  const CGFloat free = content.width() - used;
  const CGFloat left = content.x() + (centered ? free / 2 : atRight ? free : 0);
  const CGFloat imageX = rightToLeft ? left + title.width : left;
  const CGFloat titleX = rightToLeft ? left : left + image.width;
  imageView_->setFrame(
      insetWithin(CGRectMake(imageX, content.midY() - image.height / 2, image.width, image.height),
                  imageInsets_));
  titleLabel_->setFrame(
      insetWithin(CGRectMake(titleX, content.midY() - title.height / 2, title.width, title.height),
                  titleInsets_));
}

CGSize UIButton::intrinsicContentSize() const {
  const CGSize image = imageSize();
  const CGSize title = titleSize();
  const bool hasInsets = contentInsets_ != UIEdgeInsets();
  const CGFloat lineHeight = titleFont().lineHeight();
  const bool onlyImage = title.width <= 0 && image.height > 0;
  const CGFloat textHeight = onlyImage ? 0 : std::max(title.height, lineHeight);
  const CGFloat margin = hasInsets || onlyImage ? 0 : kTitleMargin;
  const CGFloat width = image.width + title.width;
  return {
      std::max(width, onlyImage || hasInsets ? 0 : kMinimumWidth) + contentInsets_.left +
          contentInsets_.right,
      std::max(image.height, textHeight + 2 * margin) + contentInsets_.top + contentInsets_.bottom};
}

CGSize UIButton::sizeThatFits(CGSize /*size*/) const {
  return intrinsicContentSize();
}

}  // namespace zephyl
