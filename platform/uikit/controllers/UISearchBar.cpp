#include "platform/uikit/controllers/UISearchBar.h"

#include <algorithm>

#include "platform/uikit/UIDevice.h"
#include "platform/uikit/UIKitText.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIViewAnimation.h"
#include "platform/uikit/controls/UIButton.h"
#include "platform/uikit/text/UITextField.h"

namespace zephyl {

namespace {

constexpr CGFloat kMargin = 8;
constexpr CGFloat kCornerRadius = 10;
constexpr CGFloat kFontSize = 17;
// Where the text begins, beside the magnifier.
constexpr CGFloat kTextStart = 30;
constexpr CGFloat kGlass = 11;
constexpr CGFloat kGlassStart = 9;
constexpr CGFloat kGlassWidth = 1.6;
constexpr double kDuration = 0.25;

struct Heights {
  CGFloat bar;
  CGFloat field;
};

// Version 11 made it larger.
Heights heights() {
  return systemVersionIsAtLeast(11.0F) ? Heights{56, 36} : Heights{44, 28};
}

// The fill of large shapes, fainter than that of buttons.
UIColor fieldColor() {
  const CGFloat red = 118 / 255.0;
  const CGFloat blue = 128 / 255.0;
  return UIColor::dynamic(UIColor::colorWithRed(red, red, blue, 0.12),
                          UIColor::colorWithRed(red, red, blue, 0.24));
}

}  // namespace

class UISearchBar::Field : public UITextField {
 public:
  explicit Field(UISearchBar& bar) : bar_(&bar) {
    setFont(UIFont::systemFontOfSize(kFontSize));
    setPlaceholder(uikitText("Search"));
    setReturnKeyType(UIReturnKeyType::kSearch);
    setClearButtonMode(UITextFieldViewMode::kWhileEditing);
    setBackgroundColor(fieldColor());
    setOpaque(false);
    layer()->setCornerRadius(kCornerRadius);
    setClipsToBounds(true);
    on(kEditingDidBegin, &UISearchBarDelegate::searchBarTextDidBeginEditing);
    on(kEditingDidEnd, &UISearchBarDelegate::searchBarTextDidEndEditing);
    on(kEditingDidEndOnExit, &UISearchBarDelegate::searchBarSearchButtonClicked);
    addAction(
        [this](UIControl&) {
          if (bar_ != nullptr) {
            bar_->changed();
          }
        },
        kEditingChanged);
  }

  void leaveBar() { bar_ = nullptr; }

  [[nodiscard]] CGRect textRectForBounds(const CGRect& bounds) const override {
    return besideGlass(UITextField::textRectForBounds(bounds));
  }
  [[nodiscard]] CGRect editingRectForBounds(const CGRect& bounds) const override {
    return besideGlass(UITextField::editingRectForBounds(bounds));
  }
  [[nodiscard]] CGRect clearButtonRectForBounds(const CGRect& bounds) const override {
    const CGRect rect = UITextField::clearButtonRectForBounds(bounds);
    return CGRectOffset(rect, UIScreen::mainScreen().isRightToLeft() ? kMargin : -kMargin, 0);
  }
  void drawRect(CGContext& context, const CGRect& rect) override {
    UITextField::drawRect(context, rect);
    const bool mirrored = UIScreen::mainScreen().isRightToLeft();
    const auto across = [&](CGFloat x) { return mirrored ? rect.width() - x : x; };
    const CGFloat left = mirrored ? across(kGlassStart + kGlass) : kGlassStart;
    const CGFloat top = rect.midY() - kGlass / 2 - 1;
    const UIColor color = UIColor::secondaryLabelColor();
    context.stroke(RoundedRect{CGRectMake(left, top, kGlass, kGlass), kGlass / 2}, kGlassWidth,
                   color);
    const CGFloat end = kGlassStart + kGlass;
    context.stroke(
        Polyline{{{across(end - 1.5), top + kGlass - 1.5}, {across(end + 3), top + kGlass + 3}}},
        kGlassWidth, color);
  }
  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override {
    return UIAccessibilityRole::kSearchField;
  }
  [[nodiscard]] const char* className() const override { return "UISearchBarTextField"; }

 private:
  void on(unsigned event, Event told) {
    addAction(
        [this, told](UIControl&) {
          if (bar_ != nullptr) {
            bar_->tell(told);
          }
        },
        event);
  }
  [[nodiscard]] static CGRect besideGlass(CGRect rect) {
    if (!UIScreen::mainScreen().isRightToLeft()) {
      rect.origin.x += kTextStart;
    }
    rect.size.width = std::max(rect.width() - kTextStart - kMargin, 0.0);
    return rect;
  }

  UISearchBar* bar_;
};

UISearchBar::UISearchBar(const CGRect& frame)
    : UIView(frame),
      field_(std::make_shared<Field>(*this)),
      cancelButton_(UIButton::buttonWithType(UIButtonType::kSystem)) {
  cancelButton_->setTitle(uikitText("Cancel"));
  cancelButton_->setTitleFont(UIFont::systemFontOfSize(kFontSize));
  cancelButton_->setHidden(true);
  cancelButton_->addAction(
      [this](UIControl&) { tell(&UISearchBarDelegate::searchBarCancelButtonClicked); },
      kTouchUpInside);
  setBackgroundColor(UIColor::systemBackgroundColor());
  setClipsToBounds(true);
  addSubview(field_);
  addSubview(cancelButton_);
}

UISearchBar::~UISearchBar() {
  field_->leaveBar();
  cancelButton_->removeFromSuperview();
}

const std::string& UISearchBar::text() const {
  return field_->text();
}

void UISearchBar::setText(std::string_view text) {
  field_->setText(text);
}

const std::string& UISearchBar::placeholder() const {
  return field_->placeholder();
}

void UISearchBar::setPlaceholder(std::string_view placeholder) {
  field_->setPlaceholder(placeholder);
}

void UISearchBar::setShowsCancelButton(bool shows, bool animated) {
  if (showsCancelButton_ == shows) {
    return;
  }
  showsCancelButton_ = shows;
  cancelButton_->setHidden(!shows);
  setNeedsLayout();
  if (animated && window() != nullptr) {
    const auto self = shared_from_this();
    animateWithDuration(kDuration, [&] { self->layoutIfNeeded(); });
  }
}

bool UISearchBar::becomeFirstResponder() {
  return field_->becomeFirstResponder();
}

bool UISearchBar::resignFirstResponder() {
  return field_->resignFirstResponder();
}

bool UISearchBar::isFirstResponder() const {
  return field_->isFirstResponder();
}

bool UISearchBar::pressesBegan(const UIKeyPress& press) {
  const auto self = shared_from_this();
  if (press.key == UIKey::kEscape && showsCancelButton_) {
    tell(&UISearchBarDelegate::searchBarCancelButtonClicked);
    return true;
  }
  if (const auto pressed = observer_.pressed; pressed && pressed(press)) {
    return true;
  }
  return UIView::pressesBegan(press);
}

void UISearchBar::tell(Event event) {
  const auto self = weak_from_this().lock();
  if (const auto observer = observer_.events.lock()) {
    ((*observer).*event)(*this);
  }
  if (const auto delegate = delegate_.lock()) {
    ((*delegate).*event)(*this);
  }
}

void UISearchBar::changed() {
  const auto self = weak_from_this().lock();
  const std::string now = text();
  if (const auto observer = observer_.events.lock()) {
    observer->textDidChange(*this, now);
  }
  if (const auto delegate = delegate_.lock()) {
    delegate->textDidChange(*this, now);
  }
}

CGSize UISearchBar::sizeThatFits(CGSize size) const {
  const CGFloat width = size.width > 0 ? size.width : UIScreen::mainScreen().bounds().width();
  return {width, heights().bar};
}

void UISearchBar::layoutSubviews() {
  const CGRect area = bounds();
  const bool mirrored = UIScreen::mainScreen().isRightToLeft();
  const CGFloat button = cancelButton_->sizeThatFits(area.size).width + 2 * kMargin;
  const CGFloat fieldWidth =
      std::max(area.width() - kMargin - (showsCancelButton_ ? button : kMargin), 0.0);
  const CGFloat fieldHeight = std::min(heights().field, area.height());
  const CGFloat fieldX = mirrored ? area.width() - kMargin - fieldWidth : kMargin;
  field_->setFrame(CGRectMake(fieldX, (area.height() - fieldHeight) / 2, fieldWidth, fieldHeight));
  cancelButton_->setFrame(
      CGRectMake(mirrored ? fieldX - button : fieldX + fieldWidth, 0, button, area.height()));
}

}  // namespace zephyl
