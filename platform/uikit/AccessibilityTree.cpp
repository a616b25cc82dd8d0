#include "platform/uikit/AccessibilityTree.h"

#include <algorithm>
#include <utility>

namespace zephyl {
namespace {

bool isShown(const UIView& view) {
  return !view.isHidden() && view.alpha() > 0.01;
}

bool isMerelyRead(const UIView& view) {
  const UIAccessibilityRole role = view.accessibilityRole();
  return role == UIAccessibilityRole::kStaticText || role == UIAccessibilityRole::kImage ||
         role == UIAccessibilityRole::kNone;
}

// Whether texts inside are elements of their own.
bool holdsTexts(const UIView& view) {
  if (!view.isAccessibilityElement()) {
    return true;
  }
  switch (view.accessibilityRole()) {
    case UIAccessibilityRole::kTable:
    case UIAccessibilityRole::kAlert:
    case UIAccessibilityRole::kNavigationBar:
    case UIAccessibilityRole::kWindow:
      return true;
    default:
      return false;
  }
}

// A table is read from the top, its headers between the rows, and at last its index, whatever lies
// over what.
void pushSubviews(std::vector<std::shared_ptr<UIView>>& stack, const UIView& view) {
  std::vector<std::shared_ptr<UIView>> subviews = view.subviews();
  if (view.accessibilityRole() == UIAccessibilityRole::kTable) {
    const auto place = [](const UIView& each) {
      return std::pair(each.accessibilityRole() == UIAccessibilityRole::kSlider, each.frame().y());
    };
    std::stable_sort(subviews.begin(), subviews.end(),
                     [&place](const auto& a, const auto& b) { return place(*a) < place(*b); });
  }
  stack.insert(stack.end(), subviews.rbegin(), subviews.rend());
}

}  // namespace

std::vector<std::shared_ptr<UIView>> accessibilityElementsIn(UIView& view) {
  std::vector<std::shared_ptr<UIView>> elements;
  std::vector<std::shared_ptr<UIView>> stack;
  const UIView* const around =
      view.isAccessibilityElement() ? &view : accessibilityContainerOf(view);
  const bool texts = around == nullptr || holdsTexts(*around);
  pushSubviews(stack, view);
  while (!stack.empty()) {
    const std::shared_ptr<UIView> at = stack.back();
    stack.pop_back();
    if (!isShown(*at)) {
      continue;
    }
    if (at->isAccessibilityElement() && (texts || !isMerelyRead(*at))) {
      elements.push_back(at);
    } else {
      pushSubviews(stack, *at);
    }
  }
  return elements;
}

UIView* accessibilityContainerOf(const UIView& view) {
  UIView* above = view.superview();
  while (above != nullptr && !above->isAccessibilityElement()) {
    above = above->superview();
  }
  return above;
}

std::shared_ptr<UIView> accessibilityScopeIn(UIView& root) {
  std::shared_ptr<UIView> scope = root.shared_from_this();
  std::vector<std::shared_ptr<UIView>> stack{scope};
  while (!stack.empty()) {
    const std::shared_ptr<UIView> at = stack.back();
    stack.pop_back();
    if (!isShown(*at)) {
      continue;
    }
    if (at->accessibilityViewIsModal()) {
      scope = at;
    }
    pushSubviews(stack, *at);
  }
  return scope;
}

}  // namespace zephyl
