#include "platform/uikit/text/TextDrawing.h"

#include <algorithm>
#include <cmath>

#include "platform/uikit/UIKitHost.h"
#include "platform/uikit/UIScreen.h"

namespace zephyl {
namespace {

// What sums of widths are off by.
constexpr CGFloat kTolerance = 1e-6;

}  // namespace

TextLayoutRef layoutText(const NSAttributedString& text, const TextStyle& style) {
  TextStyle usable = style;
  usable.area = {std::max(finite(style.area.width), 0.0), std::max(finite(style.area.height), 0.0)};
  return uikitHost().textSystem().layout(text, usable);
}

CGSize sizeOfText(const NSAttributedString& text) {
  return text.empty() ? CGSize() : layoutText(text, TextStyle())->size();
}

CGSize sizeOfText(std::string_view text, const UIFont& font) {
  return sizeOfText(NSAttributedString(text, {font, UIColor()}));
}

CGRect boundingRectWithSize(const NSAttributedString& text, CGSize size) {
  TextStyle style;
  style.area = size;
  return text.empty() ? CGRect() : CGRect{{0, 0}, layoutText(text, style)->size()};
}

void drawText(CGContext& context, const NSAttributedString& text, const CGRect& rect,
              const TextStyle& style) {
  if (text.empty() || rect.isEmpty()) {
    return;
  }
  TextStyle inRect = style;
  inRect.area = rect.size;
  context.draw(*layoutText(text, inRect), rect.origin);
}

CGFloat ceiledToPixel(CGFloat points) {
  const CGFloat scale = UIScreen::mainScreen().scale();
  return std::ceil(finite(points) * scale - kTolerance) / scale;
}

CGFloat roundedToPixel(CGFloat points) {
  const CGFloat scale = UIScreen::mainScreen().scale();
  return std::round(finite(points) * scale) / scale;
}

}  // namespace zephyl
