// A text field whose placeholder floats in small print above the text once there is one. Main
// thread.
//
// The label fades in and up when the field gets a text, and out when it is emptied.

#pragma once

#include <memory>
#include <optional>

#include "platform/foundation/Dictionary.h"
#include "platform/uikit/text/UILabel.h"
#include "platform/uikit/text/UITextField.h"

namespace zephyl {

class ZP_EXPORT ZPFloatingLabeledTextField : public UITextField {
 public:
  explicit ZPFloatingLabeledTextField(const CGRect& frame = {});
  // From an archive of a screen: the text "UIText" and the placeholder "UIPlaceholder", which the
  // label gets too. Nothing else of it is read: no screen here comes from an archive.
  explicit ZPFloatingLabeledTextField(const Dictionary& coder);

  [[nodiscard]] const std::shared_ptr<UILabel>& floatingLabel() const { return floatingLabel_; }

  // Room under the floating label, in points; none counts as 0.
  [[nodiscard]] std::optional<CGFloat> floatingLabelYPadding() const {
    return floatingLabelYPadding_;
  }
  void setFloatingLabelYPadding(std::optional<CGFloat> padding);
  // Given to the label by the next layout.
  [[nodiscard]] const std::optional<UIFont>& floatingLabelFont() const {
    return floatingLabelFont_;
  }
  void setFloatingLabelFont(const std::optional<UIFont>& font);
  [[nodiscard]] const UIColor& floatingLabelTextColor() const { return floatingLabelTextColor_; }
  void setFloatingLabelTextColor(const UIColor& color);
  // While the field is first responder. None is the tint colour.
  [[nodiscard]] const std::optional<UIColor>& floatingLabelActiveTextColor() const {
    return floatingLabelActiveTextColor_;
  }
  void setFloatingLabelActiveTextColor(const std::optional<UIColor>& color);

  // Gives the label the same text, and its size. Kept: by the font that it has at that time, which
  // before the first layout is not the floating label's.
  void setPlaceholder(std::string_view placeholder) override;

  // The platform's, lower by the label's height and the padding; the button by half of it.
  [[nodiscard]] CGRect textRectForBounds(const CGRect& bounds) const override;
  [[nodiscard]] CGRect editingRectForBounds(const CGRect& bounds) const override;
  [[nodiscard]] CGRect clearButtonRectForBounds(const CGRect& bounds) const override;

  void layoutSubviews() override;
  void tintColorDidChange() override;

  void setLabelActiveColor();
  void showFloatingLabel();
  void hideFloatingLabel();
  // The label's x, by the field's alignment; natural text stands on the leading side.
  void setLabelOriginForTextAlignment();

  [[nodiscard]] const char* className() const override { return "ZPFloatingLabeledTextField"; }

 private:
  void commonInit();
  // What the label and the padding take of the field's height.
  [[nodiscard]] CGFloat labelHeight() const;
  [[nodiscard]] CGFloat labelX() const;

  std::shared_ptr<UILabel> floatingLabel_;
  std::optional<CGFloat> floatingLabelYPadding_;
  std::optional<UIFont> floatingLabelFont_;
  UIColor floatingLabelTextColor_;
  std::optional<UIColor> floatingLabelActiveTextColor_;
};

}  // namespace zephyl
