#include "platform/uikit/UIResponder.h"

namespace zephyl {

void UIResponder::touchesBegan(const UITouch& touch) {
  if (UIResponder* const next = nextResponder()) {
    next->touchesBegan(touch);
  }
}

void UIResponder::touchesMoved(const UITouch& touch) {
  if (UIResponder* const next = nextResponder()) {
    next->touchesMoved(touch);
  }
}

void UIResponder::touchesEnded(const UITouch& touch) {
  if (UIResponder* const next = nextResponder()) {
    next->touchesEnded(touch);
  }
}

void UIResponder::touchesCancelled(const UITouch& touch) {
  if (UIResponder* const next = nextResponder()) {
    next->touchesCancelled(touch);
  }
}

bool UIResponder::pressesBegan(const UIKeyPress& press) {
  UIResponder* const next = nextResponder();
  return next != nullptr && next->pressesBegan(press);
}

}  // namespace zephyl
