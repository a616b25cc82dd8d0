// The ring on the colour map: its middle shows the colour. Main thread.
//
// On colours so pale that white would not be seen, the ring is grey.

#pragma once

#include <memory>

#include "platform/Export.h"
#include "platform/uikit/UIColor.h"
#include "platform/uikit/UIView.h"

namespace zephyl {

class ZP_EXPORT HRColorCursor : public UIView {
 public:
  explicit HRColorCursor(const CGRect& frame);

  [[nodiscard]] static CGSize cursorSize() { return {28, 28}; }
  // With its upper left corner there.
  [[nodiscard]] static std::shared_ptr<HRColorCursor> colorCursorWithPoint(CGPoint point);

  [[nodiscard]] const UIColor& color() const { return color_; }
  // Turns to the grey style or back when brightness above 0.7 and saturation below 0.4 ask for it.
  void setColor(const UIColor& color);
  [[nodiscard]] bool isGrayCursor() const { return grayCursor_; }
  void setGrayCursor(bool gray);
  // While a finger is there: grows, so that it is seen around the finger, within a tenth of a
  // second.
  [[nodiscard]] bool isEditing() const { return editing_; }
  void setEditing(bool editing);

  [[nodiscard]] const char* className() const override { return "HRColorCursor"; }

 private:
  void showStyle();

  UIColor color_;
  std::shared_ptr<CALayer> ring_;
  std::shared_ptr<CALayer> fill_;
  bool grayCursor_ = false;
  bool editing_ = false;
};

}  // namespace zephyl
