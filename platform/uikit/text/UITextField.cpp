#include "platform/uikit/text/UITextField.h"

#include <algorithm>
#include <utility>

#include "platform/foundation/Utf8.h"
#include "platform/uikit/UIKitHost.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/text/TextDrawing.h"
#include "platform/uikit/text/UITextFieldClearButton.h"

namespace zephyl {
namespace {

std::string oneLine(std::string_view text) {
  std::string line = repairedUtf8(text);
  std::replace(line.begin(), line.end(), '\n', ' ');
  std::replace(line.begin(), line.end(), '\r', ' ');
  return line;
}

void removeLastCharacter(std::string& text) {
  bool inside = !text.empty();
  while (inside) {
    inside = text.size() > 1 && (static_cast<unsigned char>(text.back()) & 0xC0U) == 0x80U;
    text.pop_back();
  }
}

bool movesInLine(UIKey key) {
  return key == UIKey::kLeft || key == UIKey::kRight || key == UIKey::kHome || key == UIKey::kEnd ||
         key == UIKey::kDelete;
}

}  // namespace

UITextField::UITextField(const CGRect& frame)
    : UIControl(frame), clearButton_(std::make_shared<UITextFieldClearButton>()) {
  setOpaque(false);
  setContentMode(UIViewContentMode::kRedraw);
  clearButton_->setHidden(true);
  // The button may live on for a while without the field.
  clearButton_->addAction(
      [](UIControl& button) {
        if (auto* const field = dynamic_cast<UITextField*>(button.superview())) {
          field->clear();
        }
      },
      kTouchUpInside);
  addSubview(clearButton_);
}

UITextField::~UITextField() {
  if (editing_) {
    uikitHost().textInput().end(*this);
  }
}

void UITextField::setText(std::string_view text) {
  if (storeText(oneLine(text)) && editing_) {
    uikitHost().textInput().update(*this);
  }
}

void UITextField::setPlaceholder(std::string_view placeholder) {
  std::string line = oneLine(placeholder);
  if (line == placeholder_) {
    return;
  }
  placeholder_ = std::move(line);
  setNeedsDisplay();
}

void UITextField::setFont(const UIFont& font) {
  if (!(font == attributes_.font)) {
    attributes_.font = font;
    lookChanged();
  }
}

void UITextField::setTextColor(const UIColor& color) {
  if (!(color == attributes_.color)) {
    attributes_.color = color;
    lookChanged();
  }
}

void UITextField::setTextAlignment(NSTextAlignment alignment) {
  if (std::exchange(alignment_, alignment) != alignment) {
    lookChanged();
  }
}

void UITextField::setContentVerticalAlignment(UIControlContentVerticalAlignment alignment) {
  if (std::exchange(verticalAlignment_, alignment) != alignment) {
    lookChanged();
  }
}

void UITextField::setBorderStyle(UITextBorderStyle style) {
  if (std::exchange(borderStyle_, style) != style) {
    lookChanged();
  }
}

void UITextField::setClearButtonMode(UITextFieldViewMode mode) {
  if (std::exchange(clearButtonMode_, mode) != mode) {
    lookChanged();
  }
}

void UITextField::setReturnKeyType(UIReturnKeyType type) {
  if (std::exchange(returnKeyType_, type) != type && editing_) {
    uikitHost().textInput().update(*this);
  }
}

bool UITextField::becomeFirstResponder() {
  if (isFirstResponder()) {
    return true;
  }
  const std::shared_ptr<UIView> keep = weak_from_this().lock();
  if (window() == nullptr || !canBecomeFirstResponder()) {
    return false;
  }
  if (const auto delegate = delegate_.lock();
      delegate != nullptr && !delegate->textFieldShouldBeginEditing(*this)) {
    return false;
  }
  if (!UIControl::becomeFirstResponder()) {
    return false;
  }
  if (std::exchange(editing_, true)) {
    return true;
  }
  toldRect_ = textInputRect();
  uikitHost().textInput().begin(*this);
  setNeedsLayout();
  setNeedsDisplay();
  if (const auto delegate = delegate_.lock()) {
    delegate->textFieldDidBeginEditing(*this);
  }
  sendActionsForControlEvents(kEditingDidBegin);
  return isFirstResponder();
}

bool UITextField::resignFirstResponder() {
  if (!isFirstResponder()) {
    return true;
  }
  const std::shared_ptr<UIView> keep = weak_from_this().lock();
  if (const auto delegate = delegate_.lock();
      delegate != nullptr && !delegate->textFieldShouldEndEditing(*this)) {
    return false;
  }
  if (!UIControl::resignFirstResponder()) {
    return false;
  }
  finishEditing();
  return true;
}

void UITextField::finishEditing() {
  if (!std::exchange(editing_, false)) {
    return;
  }
  uikitHost().textInput().end(*this);
  setNeedsLayout();
  setNeedsDisplay();
  if (const auto delegate = delegate_.lock()) {
    delegate->textFieldDidEndEditing(*this);
  }
  sendActionsForControlEvents(kEditingDidEnd);
}

// A field that leaves its window is no first responder any more, whether it agreed or not.
void UITextField::didMoveToWindow() {
  UIControl::didMoveToWindow();
  if (editing_ && !isFirstResponder()) {
    const std::shared_ptr<UIView> keep = weak_from_this().lock();
    finishEditing();
  }
}

void UITextField::stateDidChange() {
  setNeedsDisplay();
  if (!isEnabled()) {
    resignFirstResponder();
  }
}

void UITextField::endTracking(CGPoint location) {
  if (pointInside(location)) {
    becomeFirstResponder();
  }
}

bool UITextField::pressesBegan(const UIKeyPress& press) {
  if (!editing_) {
    return UIControl::pressesBegan(press);
  }
  if (uikitHost().textInput().drawsText()) {
    return UIControl::pressesBegan(press);
  }
  if (press.key == UIKey::kReturn) {
    textInputDidReturn();
    return true;
  }
  if (press.key == UIKey::kBackspace) {
    std::string text = text_;
    removeLastCharacter(text);
    textInputDidChange(text);
    return true;
  }
  const bool types = press.key == UIKey::kCharacter || press.key == UIKey::kSpace;
  if (types && !press.control && !press.characters.empty()) {
    textInputDidChange(text_ + press.characters);
    return true;
  }
  return movesInLine(press.key) || UIControl::pressesBegan(press);
}

void UITextField::textInputDidChange(const std::string& text) {
  const std::shared_ptr<UIView> keep = weak_from_this().lock();
  const std::string line = oneLine(text);
  const bool changed = storeText(line);
  if (line != text && editing_) {
    uikitHost().textInput().update(*this);
  }
  if (changed) {
    sendActionsForControlEvents(kEditingChanged);
  }
}

void UITextField::textInputDidReturn() {
  const std::shared_ptr<UIView> keep = weak_from_this().lock();
  const auto delegate = delegate_.lock();
  if (delegate == nullptr || delegate->textFieldShouldReturn(*this)) {
    sendActionsForControlEvents(kEditingDidEndOnExit);
  }
}

void UITextField::textInputDidTab(bool forwards) {
  if (window() != nullptr) {
    window()->sendKey({UIKey::kTab, {}, /*shift=*/!forwards, /*control=*/false});
  }
}

void UITextField::clear() {
  const std::shared_ptr<UIView> keep = weak_from_this().lock();
  if (const auto delegate = delegate_.lock();
      delegate != nullptr && !delegate->textFieldShouldClear(*this)) {
    return;
  }
  const bool changed = storeText({});
  if (editing_) {
    uikitHost().textInput().update(*this);
  }
  if (changed) {
    sendActionsForControlEvents(kEditingChanged);
  }
  becomeFirstResponder();
}

bool UITextField::storeText(const std::string& text) {
  if (text == text_) {
    return false;
  }
  text_ = text;
  setNeedsLayout();
  setNeedsDisplay();
  return true;
}

void UITextField::lookChanged() {
  setNeedsLayout();
  setNeedsDisplay();
  if (editing_) {
    uikitHost().textInput().update(*this);
  }
}

}  // namespace zephyl
