// Shows a text of one or more lines. Main thread.
//
// A plain text has the label's font and colour; an attributed one has its own, until the label's
// font or colour is set, which then hold for all of it. The text is in the middle of the label's
// height; what does not fit is left out as the line break mode says.

#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/uikit/NSAttributedString.h"
#include "platform/uikit/TextLayout.h"
#include "platform/uikit/UIView.h"

namespace zephyl {

// Where a text that was shrunk stands, by what it would be unshrunk: on the same baseline, around
// the same middle, or from the same upper edge.
enum class UIBaselineAdjustment { kAlignBaselines = 0, kAlignCenters = 1, kNone = 2 };

class ZP_EXPORT UILabel : public UIView {
 public:
  explicit UILabel(const CGRect& frame = {});
  ~UILabel() override;

  // Empty when there is none. Bytes that are no UTF-8 are replaced.
  [[nodiscard]] const std::string& text() const { return attributedText_.string(); }
  void setText(std::string_view text);
  [[nodiscard]] const NSAttributedString& attributedText() const { return attributedText_; }
  void setAttributedText(const NSAttributedString& text);

  [[nodiscard]] const UIFont& font() const { return attributes_.font; }
  void setFont(const UIFont& font);
  [[nodiscard]] const UIColor& textColor() const { return attributes_.color; }
  void setTextColor(const UIColor& color);
  [[nodiscard]] NSTextAlignment textAlignment() const { return alignment_; }
  void setTextAlignment(NSTextAlignment alignment);
  // 1 at first; 0 is any number, a negative one too.
  [[nodiscard]] int numberOfLines() const { return numberOfLines_; }
  void setNumberOfLines(int number);
  [[nodiscard]] NSLineBreakMode lineBreakMode() const { return lineBreakMode_; }
  void setLineBreakMode(NSLineBreakMode mode);
  // A single line that is too wide is set in a smaller font, down to the factor of the present one.
  // A factor of 0 is none smaller.
  [[nodiscard]] bool adjustsFontSizeToFitWidth() const { return adjustsFontSize_; }
  void setAdjustsFontSizeToFitWidth(bool adjusts);
  [[nodiscard]] CGFloat minimumScaleFactor() const { return minimumScaleFactor_; }
  void setMinimumScaleFactor(CGFloat factor);
  [[nodiscard]] UIBaselineAdjustment baselineAdjustment() const { return baselineAdjustment_; }
  void setBaselineAdjustment(UIBaselineAdjustment adjustment);
  // One that is not enabled is drawn dimmed.
  [[nodiscard]] bool isEnabled() const { return enabled_; }
  void setEnabled(bool enabled);

  // Around the text as it would be set into the rectangle, from its upper left corner.
  [[nodiscard]] virtual CGRect textRectForBounds(const CGRect& bounds, int numberOfLines) const;
  // Draws the text in the middle of the rectangle's height.
  virtual void drawTextInRect(CGContext& context, const CGRect& rect);
  // Calls `drawTextInRect`; what would stand out of the label is cut off.
  void drawRect(CGContext& context, const CGRect& rect) override;

  // A single line needs its width, whatever `size` is; more lines are wrapped at its width, where
  // that is more than 0. In whole pixels.
  [[nodiscard]] CGSize sizeThatFits(CGSize size) const override;
  [[nodiscard]] CGSize intrinsicContentSize() const override;

  [[nodiscard]] bool isAccessibilityElement() const override;
  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override {
    return UIAccessibilityRole::kStaticText;
  }
  [[nodiscard]] UIAccessibilityState accessibilityState() const override;
  [[nodiscard]] const char* className() const override { return "UILabel"; }
  [[nodiscard]] std::string describe() const override { return text(); }

 protected:
  [[nodiscard]] std::string derivedAccessibilityLabel() const override { return text(); }

 private:
  struct Laid;

  void textChanged();
  [[nodiscard]] TextStyle styleFor(CGSize area, int numberOfLines) const;
  [[nodiscard]] TextLayoutRef layoutFor(const NSAttributedString& text, CGSize area,
                                        int numberOfLines) const;
  [[nodiscard]] NSAttributedString shrunkToFit(CGFloat width) const;
  [[nodiscard]] NSAttributedString drawnText(const NSAttributedString& text) const;
  [[nodiscard]] const Laid& laidOut(CGSize size) const;

  NSAttributedString attributedText_;
  NSAttributedString::Attributes attributes_;
  NSTextAlignment alignment_ = NSTextAlignment::kNatural;
  NSLineBreakMode lineBreakMode_ = NSLineBreakMode::kTruncatingTail;
  int numberOfLines_ = 1;
  CGFloat minimumScaleFactor_ = 0;
  UIBaselineAdjustment baselineAdjustment_ = UIBaselineAdjustment::kAlignBaselines;
  bool adjustsFontSize_ = false;
  bool enabled_ = true;
  // What was drawn last; dropped when anything of it changes.
  mutable std::unique_ptr<Laid> laid_;
};

}  // namespace zephyl
