// A line of text that the user types. Main thread.
//
// It is typed into while it is first responder; the host's TextInput does the typing, and draws the
// text meanwhile where it can. Without such an input keys are appended at the end.

#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/uikit/TextInput.h"
#include "platform/uikit/controls/UIControl.h"
#include "platform/uikit/text/UITextFieldDelegate.h"

namespace zephyl {

enum class UITextBorderStyle { kNone = 0, kRoundedRect = 3 };
enum class UITextFieldViewMode { kNever, kWhileEditing, kUnlessEditing, kAlways };
enum class UIControlContentVerticalAlignment { kCenter, kTop, kBottom };

class ZP_EXPORT UITextField : public UIControl, public TextInputClient {
 public:
  explicit UITextField(const CGRect& frame = {});
  ~UITextField() override;

  // Setting it tells no target, and the host when it is typed into. Bytes that are no UTF-8 are
  // replaced, and line breaks become spaces.
  [[nodiscard]] const std::string& text() const { return text_; }
  void setText(std::string_view text);
  [[nodiscard]] const std::string& placeholder() const { return placeholder_; }
  virtual void setPlaceholder(std::string_view placeholder);

  [[nodiscard]] const UIFont& font() const { return attributes_.font; }
  void setFont(const UIFont& font);
  [[nodiscard]] const UIColor& textColor() const { return attributes_.color; }
  void setTextColor(const UIColor& color);
  [[nodiscard]] NSTextAlignment textAlignment() const { return alignment_; }
  void setTextAlignment(NSTextAlignment alignment);
  [[nodiscard]] UIControlContentVerticalAlignment contentVerticalAlignment() const {
    return verticalAlignment_;
  }
  void setContentVerticalAlignment(UIControlContentVerticalAlignment alignment);
  [[nodiscard]] UITextBorderStyle borderStyle() const { return borderStyle_; }
  void setBorderStyle(UITextBorderStyle style);
  // Shown only while there is a text.
  [[nodiscard]] UITextFieldViewMode clearButtonMode() const { return clearButtonMode_; }
  void setClearButtonMode(UITextFieldViewMode mode);

  // For the keyboard.
  [[nodiscard]] UIReturnKeyType returnKeyType() const { return returnKeyType_; }
  void setReturnKeyType(UIReturnKeyType type);
  [[nodiscard]] UIKeyboardType keyboardType() const { return keyboardType_; }
  void setKeyboardType(UIKeyboardType type) { keyboardType_ = type; }
  [[nodiscard]] UITextAutocorrectionType autocorrectionType() const { return autocorrection_; }
  void setAutocorrectionType(UITextAutocorrectionType type) { autocorrection_ = type; }

  void setDelegate(std::weak_ptr<UITextFieldDelegate> delegate) { delegate_ = std::move(delegate); }
  // Whether it is typed into.
  [[nodiscard]] bool isEditing() const { return editing_; }
  [[nodiscard]] bool canBecomeFirstResponder() const override { return isEnabled(); }
  bool becomeFirstResponder() override;
  bool resignFirstResponder() override;

  // Where things are in bounds of the given size: the text, the text while it is typed, the
  // placeholder, and the button, which is on the trailing side.
  [[nodiscard]] virtual CGRect textRectForBounds(const CGRect& bounds) const;
  [[nodiscard]] virtual CGRect editingRectForBounds(const CGRect& bounds) const;
  [[nodiscard]] virtual CGRect placeholderRectForBounds(const CGRect& bounds) const;
  [[nodiscard]] virtual CGRect clearButtonRectForBounds(const CGRect& bounds) const;

  void layoutSubviews() override;
  void drawRect(CGContext& context, const CGRect& rect) override;
  [[nodiscard]] CGSize sizeThatFits(CGSize size) const override;
  [[nodiscard]] CGSize intrinsicContentSize() const override;
  void didMoveToWindow() override;
  // A tap begins editing.
  void endTracking(CGPoint location) override;
  bool pressesBegan(const UIKeyPress& press) override;

  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override {
    return UIAccessibilityRole::kTextField;
  }
  // The label is the placeholder, the value the text.
  [[nodiscard]] std::string accessibilityValue() const override { return text_; }
  bool accessibilityActivate() override { return becomeFirstResponder(); }
  [[nodiscard]] const char* className() const override { return "UITextField"; }
  [[nodiscard]] std::string describe() const override;

  // From the host.
  [[nodiscard]] UIView& textInputView() override { return *this; }
  [[nodiscard]] CGRect textInputRect() const override;
  [[nodiscard]] NSAttributedString::Attributes textInputAttributes() const override {
    return attributes_;
  }
  [[nodiscard]] NSTextAlignment textInputAlignment() const override { return alignment_; }
  [[nodiscard]] std::string textInputText() const override { return text_; }
  [[nodiscard]] UIReturnKeyType textInputReturnKey() const override { return returnKeyType_; }
  void textInputDidChange(const std::string& text) override;
  void textInputDidReturn() override;
  void textInputDidTab(bool forwards) override;

 protected:
  [[nodiscard]] std::string derivedAccessibilityLabel() const override { return placeholder_; }
  void stateDidChange() override;

 private:
  // Whether it is another text than before.
  bool storeText(const std::string& text);
  void clear();
  void finishEditing();
  void lookChanged();
  [[nodiscard]] bool showsClearButton(bool editing) const;
  [[nodiscard]] CGRect contentRect(const CGRect& bounds, bool editing) const;
  // Where a line stands in a rectangle, as high as the font's lines are.
  [[nodiscard]] CGRect lineIn(const CGRect& rect) const;
  void drawBorder(CGContext& context, const CGRect& rect) const;

  std::string text_;
  std::string placeholder_;
  NSAttributedString::Attributes attributes_;
  NSTextAlignment alignment_ = NSTextAlignment::kNatural;
  UIControlContentVerticalAlignment verticalAlignment_ = UIControlContentVerticalAlignment::kCenter;
  UITextBorderStyle borderStyle_ = UITextBorderStyle::kNone;
  UITextFieldViewMode clearButtonMode_ = UITextFieldViewMode::kNever;
  UIReturnKeyType returnKeyType_ = UIReturnKeyType::kDefault;
  UIKeyboardType keyboardType_ = UIKeyboardType::kDefault;
  UITextAutocorrectionType autocorrection_ = UITextAutocorrectionType::kDefault;
  std::weak_ptr<UITextFieldDelegate> delegate_;
  std::shared_ptr<UIControl> clearButton_;
  // Where the host was told that the text stands.
  CGRect toldRect_;
  bool editing_ = false;
};

}  // namespace zephyl
