#include <typeinfo>

#include "platform/uikit/CALayer.h"
#include "platform/uikit/LayerRenderer.h"
#include "platform/uikit/UIView.h"

namespace zephyl {

void CALayer::drawInContext(CGContext& context) {
  if (contents_ != nullptr) {
    const UIColor tint = view_ == nullptr ? UIColor::labelColor() : view_->tintColor();
    context.draw(*contents_, state_.bounds, tint);
  }
  if (view_ != nullptr) {
    view_->drawRect(context, state_.bounds);
  }
}

bool CALayer::mayDrawContents() const {
  const CALayer& self = *this;
  if (contents_ != nullptr || typeid(self) != typeid(CALayer)) {
    return true;
  }
  const UIView* const view = view_;
  return view != nullptr && typeid(*view) != typeid(UIView);
}

void CALayer::render(CGContext& context) {
  LayerRenderer(context).render(*this);
}

}  // namespace zephyl
