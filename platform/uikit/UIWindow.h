// The topmost view: what a host shows. It has the root view controller, hands out touches and keys,
// knows the first responder, and collects what has to be drawn anew. Main thread.

#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/uikit/DamageCollector.h"
#include "platform/uikit/LayerSurface.h"
#include "platform/uikit/UIView.h"

namespace zephyl {

class TouchDispatcher;
class UIFocusSystem;

class ZP_EXPORT UIWindow : public UIView, private LayerSurface {
 public:
  explicit UIWindow(const CGRect& frame);
  ~UIWindow() override;

  [[nodiscard]] const std::shared_ptr<UIViewController>& rootViewController() const {
    return rootViewController_;
  }
  // Its view fills the window, and appears.
  void setRootViewController(const std::shared_ptr<UIViewController>& controller);

  // From the host. Coordinates are the window's.
  void sendTouch(const UITouch& touch);
  void sendScroll(const UIScrollEvent& scroll);
  // Whether anyone used the key. Tab, when nobody else wants it, moves the focus.
  bool sendKey(const UIKeyPress& press);

  [[nodiscard]] UIResponder* firstResponder() const { return firstResponder_; }
  [[nodiscard]] UIFocusSystem& focusSystem() { return *focus_; }

  // The layout pass, for what needs it. A layout that asks for another without end is stopped after
  // some rounds.
  void layoutWindow();
  // What changed since the last call, as few rectangles within the bounds, and forgets it.
  [[nodiscard]] Damage takeDamage();
  // Called once when there is damage or something to lay out again after `takeDamage`, from
  // wherever that happens: it only notes that a picture is wanted.
  void setDamageHandler(std::function<void()> handler) { damageHandler_ = std::move(handler); }

  [[nodiscard]] const char* className() const override { return "UIWindow"; }

 private:
  friend class UIView;

  void requestPicture();

  // For keys that nothing is first responder for.
  bool sendKeyToTopmostScreen(const UIKeyPress& press);
  void invalidate(const CGRect& rect) override;
  void scroll(const CGRect& area, CGFloat dx, CGFloat dy) override;

  std::shared_ptr<UIViewController> rootViewController_;
  std::unique_ptr<TouchDispatcher> touches_;
  std::unique_ptr<UIFocusSystem> focus_;
  UIResponder* firstResponder_ = nullptr;
  // The first responder that is asked to resign because it leaves.
  UIResponder* leaving_ = nullptr;
  DamageCollector damage_;
  // From the first damage until it is taken: all of a new window.
  bool pictureWanted_ = true;
  std::function<void()> damageHandler_;
};

}  // namespace zephyl
