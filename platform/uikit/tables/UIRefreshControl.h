// The wheel above a table that is pulled down: pulled far enough it turns, and says that its value
// changed, which means to load anew. It turns until it is told to end. Main thread.

#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/uikit/controls/UIControl.h"

namespace zephyl {

class UIActivityIndicatorView;

class ZP_EXPORT UIRefreshControl : public UIControl {
 public:
  static constexpr CGFloat kHeight = 60;
  // So far has to be pulled, in points.
  static constexpr CGFloat kPull = 110;

  UIRefreshControl();
  ~UIRefreshControl() override;

  [[nodiscard]] bool isRefreshing() const { return refreshing_; }
  // By the program: tells nobody. The table makes room for the wheel.
  void beginRefreshing();
  void endRefreshing();

  void layoutSubviews() override;
  [[nodiscard]] bool canBecomeFirstResponder() const override { return false; }
  [[nodiscard]] bool isAccessibilityElement() const override { return refreshing_; }
  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override {
    return UIAccessibilityRole::kProgress;
  }
  [[nodiscard]] UIAccessibilityState accessibilityState() const override;
  [[nodiscard]] const char* className() const override { return "UIRefreshControl"; }

  // The rest is the table's.

  // So much room is wanted above the contents.
  using RoomMaker = std::function<void(CGFloat room)>;
  void setRoomMaker(RoomMaker maker) { makeRoom_ = std::move(maker); }
  // The contents were pulled so far beyond their top.
  void pulled(CGFloat distance, bool byFinger);

 protected:
  [[nodiscard]] std::string derivedAccessibilityLabel() const override;

 private:
  void setRefreshing(bool refreshing);

  std::shared_ptr<UIActivityIndicatorView> wheel_;
  RoomMaker makeRoom_;
  bool refreshing_ = false;
  // Once a pull: it has to be let go before it counts again.
  bool spent_ = false;
};

}  // namespace zephyl
