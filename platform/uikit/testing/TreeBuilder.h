// For tests: view trees in one expression, finding views in them, and fingers on them.
//
//   const auto root = tree<UIView>(CGRectMake(0, 0, 100, 50)).tag(1).with(tree<UILabel>().tag(2));

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/uikit/UIView.h"
#include "platform/uikit/UIWindow.h"

namespace zephyl::test {

template <class View>
class Tree {
 public:
  explicit Tree(std::shared_ptr<View> view) : view_(std::move(view)) {}

  Tree& tag(std::int64_t tag) {
    view_->setTag(tag);
    return *this;
  }
  // Whatever else is to be done with the view.
  template <class Do>
  Tree& set(const Do& act) {
    act(*view_);
    return *this;
  }
  // Views or trees, from the lowest to the highest.
  template <class... Children>
  Tree& with(Children&&... children) {
    (view_->addSubview(std::forward<Children>(children)), ...);
    return *this;
  }

  [[nodiscard]] const std::shared_ptr<View>& view() const { return view_; }
  // NOLINTNEXTLINE(google-explicit-constructor): a tree is its topmost view
  operator std::shared_ptr<UIView>() const { return view_; }
  View* operator->() const { return view_.get(); }

 private:
  std::shared_ptr<View> view_;
};

template <class View, class... Arguments>
[[nodiscard]] Tree<View> tree(Arguments&&... arguments) {
  return Tree<View>(std::make_shared<View>(std::forward<Arguments>(arguments)...));
}

// Every view of the class below `root`, itself included, in the order of the tree.
template <class View>
[[nodiscard]] std::vector<View*> viewsOf(UIView& root) {
  std::vector<View*> found;
  std::vector<UIView*> stack{&root};
  while (!stack.empty()) {
    UIView& view = *stack.back();
    stack.pop_back();
    if (auto* const one = dynamic_cast<View*>(&view)) {
      found.push_back(one);
    }
    const auto& subviews = view.subviews();
    for (auto subview = subviews.rbegin(); subview != subviews.rend(); ++subview) {
      stack.push_back(subview->get());
    }
  }
  return found;
}

// The first of the class; null when there is none.
template <class View>
[[nodiscard]] View* viewOf(UIView& root) {
  const std::vector<View*> found = viewsOf<View>(root);
  return found.empty() ? nullptr : found.front();
}

// Every view whose class calls itself so, in the order of the tree: for classes that are hidden.
[[nodiscard]] inline std::vector<UIView*> viewsNamed(UIView& root, const std::string& className) {
  std::vector<UIView*> found;
  for (UIView* const view : viewsOf<UIView>(root)) {
    if (view->className() == className) {
      found.push_back(view);
    }
  }
  return found;
}

// The first that shows the text; null when there is none.
[[nodiscard]] inline UIView* viewShowing(UIView& root, const std::string& text) {
  for (UIView* const view : viewsOf<UIView>(root)) {
    if (view->describe() == text) {
      return view;
    }
  }
  return nullptr;
}

[[nodiscard]] inline CGPoint middleOf(const UIView& view) {
  return view.convertPointToView({view.bounds().midX(), view.bounds().midY()}, nullptr);
}

inline void touch(UIWindow& window, UITouchPhase phase, CGPoint at, double timestamp = 0,
                  int identifier = 0) {
  window.sendTouch({identifier, phase, at, timestamp, /*secondary=*/false});
}

inline void tap(UIWindow& window, CGPoint at, double timestamp = 0) {
  touch(window, UITouchPhase::kBegan, at, timestamp);
  touch(window, UITouchPhase::kEnded, at, timestamp + 0.05);
}

inline void tap(UIWindow& window, const UIView& view) {
  tap(window, middleOf(view));
}

}  // namespace zephyl::test
