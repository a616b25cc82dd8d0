// What a screen shows in the navigation bar while it is on top. Main thread.

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/Export.h"
#include "platform/uikit/controllers/UIBarButtonItem.h"

namespace zephyl {

class ZP_EXPORT UINavigationItem {
 public:
  using Items = std::vector<UIBarButtonItemRef>;

  explicit UINavigationItem(std::string title) : title_(std::move(title)) {}
  UINavigationItem(const UINavigationItem&) = delete;
  UINavigationItem& operator=(const UINavigationItem&) = delete;

  [[nodiscard]] const std::string& title() const { return title_; }
  void setTitle(const std::string& title);
  // Shown in the place of the title; null for none.
  [[nodiscard]] const std::shared_ptr<UIView>& titleView() const { return titleView_; }
  void setTitleView(const std::shared_ptr<UIView>& view);

  // The outermost first; left is the leading side. Left items take the place of the back button.
  // Null items are left out.
  [[nodiscard]] const Items& leftBarButtonItems() const { return left_; }
  [[nodiscard]] const Items& rightBarButtonItems() const { return right_; }
  void setLeftBarButtonItems(Items items, bool animated = false);
  void setRightBarButtonItems(Items items, bool animated = false);
  // The outermost; null for none. Setting it replaces all of its side.
  [[nodiscard]] UIBarButtonItemRef leftBarButtonItem() const;
  [[nodiscard]] UIBarButtonItemRef rightBarButtonItem() const;
  void setLeftBarButtonItem(const UIBarButtonItemRef& item, bool animated = false);
  void setRightBarButtonItem(const UIBarButtonItemRef& item, bool animated = false);

  [[nodiscard]] bool hidesBackButton() const { return hidesBackButton_; }
  void setHidesBackButton(bool hides, bool animated = false);

  // For the bar that shows it; one handler.
  using ChangeHandler = std::function<void(bool animated)>;
  void setChangeHandler(ChangeHandler handler) { changed_ = std::move(handler); }

 private:
  void changed(bool animated);

  std::string title_;
  std::shared_ptr<UIView> titleView_;
  Items left_;
  Items right_;
  ChangeHandler changed_;
  bool hidesBackButton_ = false;
};

}  // namespace zephyl
