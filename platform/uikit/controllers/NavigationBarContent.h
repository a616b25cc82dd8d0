// What a navigation bar shows of one item. Main thread.

#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/uikit/UIView.h"
#include "platform/uikit/controllers/UINavigationItem.h"

namespace zephyl {

class BackButton;
class BarButton;
class UILabel;

class NavigationBarContent : public UIView {
 public:
  // `back` is null where no way back is to be shown.
  NavigationBarContent(const std::shared_ptr<UINavigationItem>& item,
                       const std::shared_ptr<UINavigationItem>& back,
                       const std::function<void()>& backAction);
  ~NavigationBarContent() override;

  // The title, wherever it is, moved by `distance`.
  void shiftTitle(CGFloat distance);

  void layoutSubviews() override;
  [[nodiscard]] UIView* hitTest(CGPoint point) override;
  [[nodiscard]] const char* className() const override { return "UINavigationBarContentView"; }

 private:
  [[nodiscard]] std::vector<std::shared_ptr<BarButton>> addButtons(
      const UINavigationItem::Items& items);
  // From the outer side at `start` inwards; where the last one ends.
  CGFloat layoutButtons(const std::vector<std::shared_ptr<BarButton>>& buttons, bool onTheLeft);
  CGFloat layoutBack(bool onTheLeft, CGFloat room);
  void layoutTitle(CGFloat left, CGFloat right);
  [[nodiscard]] CGFloat titleWidth() const;

  std::shared_ptr<UIView> title_;
  std::shared_ptr<UILabel> titleLabel_;
  std::shared_ptr<BackButton> backButton_;
  std::vector<std::shared_ptr<BarButton>> leading_;
  std::vector<std::shared_ptr<BarButton>> trailing_;
};

}  // namespace zephyl
