#include "platform/uikit/UIFocusSystem.h"

#include <algorithm>
#include <vector>

#include "platform/uikit/AccessibilityTree.h"
#include "platform/uikit/UIWindow.h"

namespace zephyl {
namespace {

constexpr CGFloat kRingWidth = 3;
constexpr CGFloat kRingRadius = 8;

// Every view in reading order that may become first responder.
std::vector<std::shared_ptr<UIView>> stopsIn(UIView& root) {
  std::vector<std::shared_ptr<UIView>> stops;
  std::vector<std::shared_ptr<UIView>> stack{accessibilityScopeIn(root)};
  while (!stack.empty()) {
    const std::shared_ptr<UIView> at = stack.back();
    stack.pop_back();
    if (at->isHidden() || at->alpha() <= 0.01 || !at->isUserInteractionEnabled()) {
      continue;
    }
    if (at->canBecomeFirstResponder()) {
      stops.push_back(at);
    }
    stack.insert(stack.end(), at->subviews().rbegin(), at->subviews().rend());
  }
  return stops;
}

bool showsItsOwnFocus(const UIView& view) {
  switch (view.accessibilityRole()) {
    case UIAccessibilityRole::kTextField:
    case UIAccessibilityRole::kSearchField:
    case UIAccessibilityRole::kTable:
      return true;
    default:
      return false;
  }
}

std::shared_ptr<UIView> makeRing() {
  auto ring = std::make_shared<UIView>();
  ring->setUserInteractionEnabled(false);
  ring->setOpaque(false);
  ring->layer()->setBorderWidth(kRingWidth);
  ring->layer()->setBorderColor(UIColor::systemBlueColor());
  ring->layer()->setCornerRadius(kRingRadius);
  return ring;
}

}  // namespace

UIFocusSystem::UIFocusSystem(UIWindow& window) : window_(window) {}

bool UIFocusSystem::moveFocus(bool forwards) {
  byKeys_ = true;
  std::vector<std::shared_ptr<UIView>> stops = stopsIn(window_);
  if (!forwards) {
    std::reverse(stops.begin(), stops.end());
  }
  const auto present = std::find_if(stops.begin(), stops.end(),
                                    [](const auto& view) { return view->isFirstResponder(); });
  // From the one after the present to the present itself; each may refuse.
  const auto first = present == stops.end() ? stops.begin() : present + 1;
  std::rotate(stops.begin(), first, stops.end());
  const bool moved = std::any_of(stops.begin(), stops.end(), [](const auto& view) {
    return !view->isFirstResponder() && view->becomeFirstResponder();
  });
  update();
  return moved;
}

void UIFocusSystem::update() {
  const auto* const view = dynamic_cast<UIView*>(window_.firstResponder());
  if (view == nullptr || !byKeys_ || showsItsOwnFocus(*view)) {
    if (ring_ != nullptr) {
      ring_->removeFromSuperview();
      ring_ = nullptr;
    }
    return;
  }
  if (ring_ == nullptr) {
    ring_ = makeRing();
  }
  const CGRect around =
      CGRectInset(view->convertRectToView(view->bounds(), &window_), -kRingWidth, -kRingWidth);
  ring_->setFrame(CGRectIntersection(around, window_.bounds()));
  if (window_.subviews().empty() || window_.subviews().back() != ring_) {
    window_.addSubview(ring_);
  }
}

void UIFocusSystem::hideRing() {
  byKeys_ = false;
  update();
}

}  // namespace zephyl
