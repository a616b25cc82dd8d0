#include "platform/uikit/text/UILabel.h"

#include <algorithm>
#include <utility>

#include "platform/uikit/CGContext.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/text/TextDrawing.h"

namespace zephyl {
namespace {

// How much of a dimmed text's opacity is left.
constexpr CGFloat kDisabledAlpha = 112 / 255.0;
constexpr CGFloat kTolerance = 0.01;

NSAttributedString scaled(const NSAttributedString& text, CGFloat factor) {
  NSAttributedString result = text;
  for (const auto& run : text.runs()) {
    auto attributes = run.attributes;
    attributes.font = attributes.font.fontWithSize(attributes.font.pointSize() * factor);
    result.setAttributes(run.start, run.length, attributes);
  }
  return result;
}

}  // namespace

// The text as it is drawn into an area.
struct UILabel::Laid {
  CGSize size;
  UIUserInterfaceLayoutDirection direction = UIUserInterfaceLayoutDirection::kLeftToRight;
  CGFloat scale = 1;
  TextLayoutRef layout;
  // From the upper edge of the area.
  CGFloat top = 0;
};

UILabel::UILabel(const CGRect& frame) : UIView(frame) {
  setUserInteractionEnabled(false);
  setOpaque(false);
  setContentMode(UIViewContentMode::kRedraw);
}

UILabel::~UILabel() = default;

void UILabel::setText(std::string_view text) {
  setAttributedText(NSAttributedString(text, attributes_));
}

void UILabel::setAttributedText(const NSAttributedString& text) {
  if (text == attributedText_) {
    return;
  }
  attributedText_ = text;
  textChanged();
}

void UILabel::setFont(const UIFont& font) {
  attributes_.font = font;
  NSAttributedString text = attributedText_;
  for (const auto& run : attributedText_.runs()) {
    text.setAttributes(run.start, run.length, {font, run.attributes.color});
  }
  setAttributedText(text);
}

void UILabel::setTextColor(const UIColor& color) {
  attributes_.color = color;
  NSAttributedString text = attributedText_;
  for (const auto& run : attributedText_.runs()) {
    text.setAttributes(run.start, run.length, {run.attributes.font, color});
  }
  setAttributedText(text);
}

void UILabel::setTextAlignment(NSTextAlignment alignment) {
  if (std::exchange(alignment_, alignment) != alignment) {
    textChanged();
  }
}

void UILabel::setNumberOfLines(int number) {
  const int usable = std::max(number, 0);
  if (std::exchange(numberOfLines_, usable) != usable) {
    textChanged();
  }
}

void UILabel::setLineBreakMode(NSLineBreakMode mode) {
  if (std::exchange(lineBreakMode_, mode) != mode) {
    textChanged();
  }
}

void UILabel::setAdjustsFontSizeToFitWidth(bool adjusts) {
  if (std::exchange(adjustsFontSize_, adjusts) != adjusts) {
    textChanged();
  }
}

void UILabel::setMinimumScaleFactor(CGFloat factor) {
  const CGFloat usable = std::clamp(finite(factor), 0.0, 1.0);
  if (std::exchange(minimumScaleFactor_, usable) != usable) {
    textChanged();
  }
}

void UILabel::setBaselineAdjustment(UIBaselineAdjustment adjustment) {
  if (std::exchange(baselineAdjustment_, adjustment) != adjustment) {
    textChanged();
  }
}

void UILabel::setEnabled(bool enabled) {
  if (std::exchange(enabled_, enabled) != enabled) {
    textChanged();
  }
}

CGRect UILabel::textRectForBounds(const CGRect& bounds, int numberOfLines) const {
  if (attributedText_.empty() || bounds.width() <= 0 || bounds.height() <= 0) {
    return {bounds.origin, {}};
  }
  return {bounds.origin, layoutFor(attributedText_, bounds.size, numberOfLines)->size()};
}

void UILabel::drawTextInRect(CGContext& context, const CGRect& rect) {
  if (attributedText_.empty() || rect.width() <= 0 || rect.height() <= 0) {
    return;
  }
  const Laid& laid = laidOut(rect.size);
  context.draw(*laid.layout, {rect.x(), rect.y() + laid.top});
}

void UILabel::drawRect(CGContext& context, const CGRect& rect) {
  if (!attributedText_.empty()) {
    context.clip({rect});
  }
  drawTextInRect(context, rect);
}

CGSize UILabel::sizeThatFits(CGSize size) const {
  const CGSize most = TextStyle().area;
  const bool anyWidth = numberOfLines_ == 1 || !(size.width > 0);
  const CGRect bounds = CGRectMake(0, 0, anyWidth ? most.width : size.width, most.height);
  const CGRect text = textRectForBounds(bounds, numberOfLines_);
  return {ceiledToPixel(text.width()), ceiledToPixel(text.height())};
}

CGSize UILabel::intrinsicContentSize() const {
  return sizeThatFits(bounds().size);
}

bool UILabel::isAccessibilityElement() const {
  return !accessibilityLabel().empty();
}

UIAccessibilityState UILabel::accessibilityState() const {
  UIAccessibilityState state;
  state.enabled = enabled_;
  return state;
}

void UILabel::textChanged() {
  laid_.reset();
  setNeedsDisplay();
}

TextStyle UILabel::styleFor(CGSize area, int numberOfLines) const {
  return {area, std::max(numberOfLines, 0), lineBreakMode_, alignment_};
}

// No line stands out of the height, the first excepted.
TextLayoutRef UILabel::layoutFor(const NSAttributedString& text, CGSize area,
                                 int numberOfLines) const {
  TextLayoutRef layout = layoutText(text, styleFor(area, numberOfLines));
  if (layout->lineCount() > 1 && layout->size().height > area.height + kTolerance) {
    layout = layoutText(text, styleFor(area, layout->lineCount() - 1));
  }
  return layout;
}

NSAttributedString UILabel::shrunkToFit(CGFloat width) const {
  constexpr int kMostTries = 8;
  const CGFloat smallest = minimumScaleFactor_ > 0 ? minimumScaleFactor_ : 1;
  CGFloat factor = 1;
  NSAttributedString text = attributedText_;
  for (int tries = 0; tries < kMostTries && factor > smallest; ++tries) {
    const CGFloat needed = sizeOfText(text).width;
    if (needed <= width + kTolerance) {
      break;
    }
    // Widths do not follow sizes exactly: the later tries go a little further.
    factor = std::max(smallest, factor * width / needed * (tries == 0 ? 1 : 0.99));
    text = scaled(attributedText_, factor);
  }
  return text;
}

NSAttributedString UILabel::drawnText(const NSAttributedString& text) const {
  if (enabled_) {
    return text;
  }
  NSAttributedString dimmed = text;
  for (const auto& run : text.runs()) {
    const UIColor& color = run.attributes.color;
    dimmed.setAttributes(run.start, run.length,
                         {run.attributes.font, color.colorWithAlphaMultipliedBy(kDisabledAlpha)});
  }
  return dimmed;
}

const UILabel::Laid& UILabel::laidOut(CGSize size) const {
  UIScreen& screen = UIScreen::mainScreen();
  const auto direction = screen.userInterfaceLayoutDirection();
  const CGFloat scale = screen.scale();
  if (laid_ != nullptr && laid_->size == size && laid_->direction == direction &&
      laid_->scale == scale) {
    return *laid_;
  }
  const bool shrinks = adjustsFontSize_ && numberOfLines_ == 1;
  const NSAttributedString text = shrinks ? shrunkToFit(size.width) : attributedText_;
  Laid laid{size, direction, scale, layoutFor(drawnText(text), size, numberOfLines_), 0};
  laid.top = (size.height - laid.layout->size().height) / 2;
  if (shrinks && !(text == attributedText_) &&
      baselineAdjustment_ != UIBaselineAdjustment::kAlignCenters) {
    const TextLayoutRef unshrunk = layoutFor(attributedText_, size, 1);
    laid.top = (size.height - unshrunk->size().height) / 2;
    if (baselineAdjustment_ == UIBaselineAdjustment::kAlignBaselines) {
      laid.top += unshrunk->firstBaseline() - laid.layout->firstBaseline();
    }
  }
  laid.top = roundedToPixel(laid.top);
  laid_ = std::make_unique<Laid>(std::move(laid));
  return *laid_;
}

}  // namespace zephyl
