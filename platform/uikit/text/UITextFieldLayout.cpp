// Where the parts of a text field are, and how they are drawn.

#include <algorithm>

#include "platform/uikit/CGContext.h"
#include "platform/uikit/UIKitHost.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/text/TextDrawing.h"
#include "platform/uikit/text/UITextField.h"
#include "platform/uikit/text/UITextFieldClearButton.h"

namespace zephyl {
namespace {

// Between a border and what is in it.
constexpr CGFloat kBorderInset = 7;
constexpr CGFloat kBorderInsetAbove = 2;
constexpr CGFloat kBorderRadius = 5;
constexpr CGFloat kBorderedHeight = 34;
// Between the border and the button.
constexpr CGFloat kClearButtonMargin = 5;

bool isRightToLeft() {
  return UIScreen::mainScreen().userInterfaceLayoutDirection() ==
         UIUserInterfaceLayoutDirection::kRightToLeft;
}

}  // namespace

bool UITextField::showsClearButton(bool editing) const {
  if (text_.empty() || !isEnabled()) {
    return false;
  }
  switch (clearButtonMode_) {
    case UITextFieldViewMode::kWhileEditing:
      return editing;
    case UITextFieldViewMode::kUnlessEditing:
      return !editing;
    case UITextFieldViewMode::kAlways:
      return true;
    default:
      return false;
  }
}

CGRect UITextField::contentRect(const CGRect& bounds, bool editing) const {
  const bool bordered = borderStyle_ == UITextBorderStyle::kRoundedRect;
  UIEdgeInsets insets;
  if (bordered) {
    insets = {kBorderInsetAbove, kBorderInset, kBorderInsetAbove, kBorderInset};
  }
  if (showsClearButton(editing)) {
    const CGFloat button = UITextFieldClearButton::kSide + (bordered ? kClearButtonMargin : 0);
    (isRightToLeft() ? insets.left : insets.right) = button;
  }
  CGRect rect = UIEdgeInsetsInsetRect(bounds, insets);
  rect.size.width = std::max(rect.width(), 0.0);
  rect.size.height = std::max(rect.height(), 0.0);
  return rect;
}

CGRect UITextField::textRectForBounds(const CGRect& bounds) const {
  return contentRect(bounds, /*editing=*/false);
}

CGRect UITextField::editingRectForBounds(const CGRect& bounds) const {
  return contentRect(bounds, /*editing=*/true);
}

CGRect UITextField::placeholderRectForBounds(const CGRect& bounds) const {
  return editing_ ? editingRectForBounds(bounds) : textRectForBounds(bounds);
}

CGRect UITextField::clearButtonRectForBounds(const CGRect& bounds) const {
  constexpr CGFloat kSide = UITextFieldClearButton::kSide;
  const CGFloat margin = borderStyle_ == UITextBorderStyle::kNone ? 0 : kClearButtonMargin;
  const CGFloat x = isRightToLeft() ? bounds.x() + margin : bounds.maxX() - margin - kSide;
  return CGRectMake(x, roundedToPixel(bounds.midY() - kSide / 2), kSide, kSide);
}

CGRect UITextField::lineIn(const CGRect& rect) const {
  const CGFloat height = attributes_.font.lineHeight();
  CGFloat y = rect.y();
  if (verticalAlignment_ == UIControlContentVerticalAlignment::kCenter) {
    y = rect.midY() - height / 2;
  } else if (verticalAlignment_ == UIControlContentVerticalAlignment::kBottom) {
    y = rect.maxY() - height;
  }
  return CGRectMake(rect.x(), roundedToPixel(y), rect.width(), height);
}

CGRect UITextField::textInputRect() const {
  return lineIn(editingRectForBounds(bounds()));
}

void UITextField::layoutSubviews() {
  UIControl::layoutSubviews();
  clearButton_->setFrame(clearButtonRectForBounds(bounds()));
  clearButton_->setHidden(!showsClearButton(editing_));
  if (editing_ && !(toldRect_ == textInputRect())) {
    toldRect_ = textInputRect();
    uikitHost().textInput().update(*this);
  }
}

void UITextField::drawRect(CGContext& context, const CGRect& rect) {
  drawBorder(context, rect);
  TextStyle style;
  style.maximumLines = 1;
  style.alignment = alignment_;
  style.lineBreakMode = NSLineBreakMode::kTruncatingTail;
  if (text_.empty()) {
    const NSAttributedString text(placeholder_,
                                  {attributes_.font, UIColor::placeholderTextColor()});
    drawText(context, text, lineIn(placeholderRectForBounds(rect)), style);
    return;
  }
  if (!editing_) {
    drawText(context, {text_, attributes_}, lineIn(textRectForBounds(rect)), style);
  } else if (!uikitHost().textInput().drawsText()) {
    // What was typed last stays in view.
    style.lineBreakMode = NSLineBreakMode::kTruncatingHead;
    drawText(context, {text_, attributes_}, lineIn(editingRectForBounds(rect)), style);
  }
}

void UITextField::drawBorder(CGContext& context, const CGRect& rect) const {
  if (borderStyle_ == UITextBorderStyle::kNone || rect.isEmpty()) {
    return;
  }
  const RoundedRect shape{rect, kBorderRadius};
  context.fill(shape, UIColor::systemBackgroundColor());
  context.stroke(shape, 1 / UIScreen::mainScreen().scale(), UIColor::systemGray3Color());
}

CGSize UITextField::sizeThatFits(CGSize /*size*/) const {
  const CGSize text = sizeOfText(text_.empty() ? placeholder_ : text_, attributes_.font);
  const CGFloat height = ceiledToPixel(attributes_.font.lineHeight());
  if (borderStyle_ == UITextBorderStyle::kNone) {
    return {ceiledToPixel(text.width), height};
  }
  return {ceiledToPixel(text.width) + 2 * kBorderInset,
          std::max(height + 2 * kBorderInset, kBorderedHeight)};
}

CGSize UITextField::intrinsicContentSize() const {
  return sizeThatFits({});
}

std::string UITextField::describe() const {
  return text_.empty() ? placeholder_ : text_;
}

}  // namespace zephyl
