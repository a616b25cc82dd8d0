// A button with a title, a picture, or both, the picture on the leading side. Main thread.
//
// Title, colour and picture are told by state; what a state does not have is that of the normal
// state. A system button shows both in the tint colour, dims while it is pressed, and is grey
// while it is disabled. A custom one shows a title in white, and dims only its picture.

#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "platform/uikit/NSAttributedString.h"
#include "platform/uikit/UIImage.h"
#include "platform/uikit/controls/UIControl.h"

namespace zephyl {

class UIImageView;
class UILabel;

// With the platform's values.
enum class UIButtonType { kCustom = 0, kSystem = 1 };

enum class UIControlContentHorizontalAlignment {
  kCenter = 0,
  kLeft = 1,
  kRight = 2,
  kFill = 3,
  kLeading = 4,
  kTrailing = 5
};

class ZP_EXPORT UIButton : public UIControl {
 public:
  explicit UIButton(UIButtonType type = UIButtonType::kCustom, const CGRect& frame = {});
  ~UIButton() override;

  [[nodiscard]] static std::shared_ptr<UIButton> buttonWithType(UIButtonType type);
  [[nodiscard]] UIButtonType buttonType() const { return type_; }

  void setTitle(const std::string& title, unsigned state = kControlStateNormal);
  // Goes before a title; its own colours are shown, dimmed and greyed as a whole.
  void setAttributedTitle(const NSAttributedString& title, unsigned state = kControlStateNormal);
  void setTitleColor(const UIColor& color, unsigned state = kControlStateNormal);
  // A template picture, and in a system button every one that does not say otherwise, is drawn in
  // the tint colour. Null is none.
  void setImage(const UIImageRef& image, unsigned state = kControlStateNormal);

  [[nodiscard]] std::string titleForState(unsigned state) const;
  [[nodiscard]] UIImageRef imageForState(unsigned state) const;
  [[nodiscard]] std::string currentTitle() const { return titleForState(state()); }
  [[nodiscard]] UIColor currentTitleColor() const;
  [[nodiscard]] UIImageRef currentImage() const { return imageForState(state()); }

  // Its font is the caller's to set, by `setTitleFont` so that the button is laid out anew: by
  // default 15 points in a system button, 18 in a custom one. Text and colour are the button's.
  [[nodiscard]] const std::shared_ptr<UILabel>& titleLabel() const { return titleLabel_; }
  [[nodiscard]] const std::shared_ptr<UIImageView>& imageView() const { return imageView_; }
  void setTitleFont(const UIFont& font);
  [[nodiscard]] UIFont titleFont() const;

  // Around both; and what moves each of the two from where it would be. Right-to-left mirrors them.
  void setContentEdgeInsets(const UIEdgeInsets& insets);
  void setTitleEdgeInsets(const UIEdgeInsets& insets);
  void setImageEdgeInsets(const UIEdgeInsets& insets);
  void setContentHorizontalAlignment(UIControlContentHorizontalAlignment alignment);

  void layoutSubviews() override;
  [[nodiscard]] CGSize sizeThatFits(CGSize size) const override;
  [[nodiscard]] CGSize intrinsicContentSize() const override;
  void tintColorDidChange() override;

  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override {
    return UIAccessibilityRole::kButton;
  }
  [[nodiscard]] const char* className() const override { return "UIButton"; }
  [[nodiscard]] std::string describe() const override { return currentTitle(); }

 protected:
  void stateDidChange() override;
  [[nodiscard]] std::string derivedAccessibilityLabel() const override { return currentTitle(); }

 private:
  struct Content {
    std::optional<std::string> title;
    std::optional<NSAttributedString> attributedTitle;
    std::optional<UIColor> titleColor;
    std::optional<UIImageRef> image;
  };

  template <class T>
  [[nodiscard]] std::optional<T> find(std::optional<T> Content::*member, unsigned state) const;
  [[nodiscard]] NSAttributedString attributedTitle() const;
  [[nodiscard]] CGSize titleSize() const;
  [[nodiscard]] CGSize imageSize() const;
  void contentChanged();
  void showState();

  UIButtonType type_;
  std::map<unsigned, Content> contents_;
  std::shared_ptr<UILabel> titleLabel_;
  std::shared_ptr<UIImageView> imageView_;
  UIEdgeInsets contentInsets_;
  UIEdgeInsets titleInsets_;
  UIEdgeInsets imageInsets_;
  UIControlContentHorizontalAlignment alignment_ = UIControlContentHorizontalAlignment::kCenter;
};

}  // namespace zephyl
