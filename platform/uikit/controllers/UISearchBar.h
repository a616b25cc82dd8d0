// A field for what to search, with a Cancel button beside it where that is asked for. Main thread.

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/Export.h"
#include "platform/uikit/UIView.h"

namespace zephyl {

class UIButton;
class UISearchBar;
class UITextField;

// Told after it happened; none need be taken.
class ZP_EXPORT UISearchBarDelegate {
 public:
  virtual ~UISearchBarDelegate() = default;
  virtual void searchBarTextDidBeginEditing(UISearchBar& /*searchBar*/) {}
  virtual void searchBarTextDidEndEditing(UISearchBar& /*searchBar*/) {}
  // The user changed the text.
  virtual void textDidChange(UISearchBar& /*searchBar*/, const std::string& /*text*/) {}
  // Return was pressed.
  virtual void searchBarSearchButtonClicked(UISearchBar& /*searchBar*/) {}
  // Escape is the Cancel button, while that is shown.
  virtual void searchBarCancelButtonClicked(UISearchBar& /*searchBar*/) {}
};

class ZP_EXPORT UISearchBar : public UIView {
 public:
  explicit UISearchBar(const CGRect& frame = {});
  ~UISearchBar() override;

  // Setting it tells nobody.
  [[nodiscard]] const std::string& text() const;
  void setText(std::string_view text);
  // "Search", localized, at first.
  [[nodiscard]] const std::string& placeholder() const;
  void setPlaceholder(std::string_view placeholder);
  [[nodiscard]] bool showsCancelButton() const { return showsCancelButton_; }
  void setShowsCancelButton(bool shows, bool animated = false);
  void setDelegate(std::weak_ptr<UISearchBarDelegate> delegate) { delegate_ = std::move(delegate); }
  // For the search controller: told first, and of keys that the field has no use for.
  struct Observer {
    std::weak_ptr<UISearchBarDelegate> events;
    std::function<bool(const UIKeyPress& press)> pressed;
  };
  void setObserver(Observer observer) { observer_ = std::move(observer); }

  // The field is: as long as it is, the bar is edited.
  bool becomeFirstResponder() override;
  bool resignFirstResponder() override;
  [[nodiscard]] bool isFirstResponder() const override;
  [[nodiscard]] bool canBecomeFirstResponder() const override { return true; }
  bool pressesBegan(const UIKeyPress& press) override;

  // As wide as `size`, or as the screen where that has no width.
  [[nodiscard]] CGSize sizeThatFits(CGSize size) const override;
  void layoutSubviews() override;
  [[nodiscard]] const char* className() const override { return "UISearchBar"; }

 private:
  class Field;
  using Event = void (UISearchBarDelegate::*)(UISearchBar& searchBar);

  void tell(Event event);
  void changed();

  std::shared_ptr<Field> field_;
  std::shared_ptr<UIButton> cancelButton_;
  std::weak_ptr<UISearchBarDelegate> delegate_;
  Observer observer_;
  bool showsCancelButton_ = false;
};

}  // namespace zephyl
