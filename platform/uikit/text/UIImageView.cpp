#include "platform/uikit/text/UIImageView.h"

#include <algorithm>

#include "platform/uikit/CGContext.h"
#include "platform/uikit/text/TextDrawing.h"

namespace zephyl {
namespace {

CGRect centred(const CGRect& bounds, CGSize size) {
  return CGRectMake(roundedToPixel(bounds.midX() - size.width / 2),
                    roundedToPixel(bounds.midY() - size.height / 2), size.width, size.height);
}

bool contains(const CGRect& outer, const CGRect& inner) {
  return inner.x() >= outer.x() && inner.y() >= outer.y() && inner.maxX() <= outer.maxX() &&
         inner.maxY() <= outer.maxY();
}

}  // namespace

UIImageView::UIImageView(const CGRect& frame) : UIView(frame) {
  setUserInteractionEnabled(false);
  setOpaque(false);
}

UIImageView::UIImageView(const UIImageRef& image)
    : UIImageView(CGRect{{0, 0}, image == nullptr ? CGSize() : image->size()}) {
  image_ = image;
}

void UIImageView::setImage(const UIImageRef& image) {
  if (image == image_) {
    return;
  }
  image_ = image;
  setNeedsDisplay();
}

void UIImageView::drawRect(CGContext& context, const CGRect& rect) {
  if (image_ == nullptr || rect.isEmpty()) {
    return;
  }
  const CGRect place = imageRect(rect);
  if (place.isEmpty()) {
    return;
  }
  if (!contains(rect, place)) {
    context.clip({rect});
  }
  context.draw(*image_, place, tintColor());
}

void UIImageView::tintColorDidChange() {
  if (image_ != nullptr && image_->renderingMode() == UIImageRenderingMode::kAlwaysTemplate) {
    setNeedsDisplay();
  }
}

CGSize UIImageView::sizeThatFits(CGSize /*size*/) const {
  return image_ == nullptr ? CGSize() : image_->size();
}

CGSize UIImageView::intrinsicContentSize() const {
  return sizeThatFits({});
}

CGRect UIImageView::imageRect(const CGRect& bounds) const {
  const UIViewContentMode mode = contentMode();
  if (mode == UIViewContentMode::kScaleToFill || mode == UIViewContentMode::kRedraw) {
    return bounds;
  }
  const CGSize size = image_->size();
  if (size.width <= 0 || size.height <= 0) {
    return {};
  }
  if (mode == UIViewContentMode::kCenter) {
    return centred(bounds, size);
  }
  const CGFloat horizontal = bounds.width() / size.width;
  const CGFloat vertical = bounds.height() / size.height;
  const CGFloat factor = mode == UIViewContentMode::kScaleAspectFit
                             ? std::min(horizontal, vertical)
                             : std::max(horizontal, vertical);
  return centred(bounds, {size.width * factor, size.height * factor});
}

}  // namespace zephyl
