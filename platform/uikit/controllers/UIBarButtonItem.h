// A button of a navigation bar, as a screen describes it: the bar makes the view. Main thread.

#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "platform/Export.h"
#include "platform/uikit/UIImage.h"

namespace zephyl {

class UIView;

// With the platform's values. Texts are the system's; "add" is a picture.
enum class UIBarButtonSystemItem { kDone = 0, kCancel = 1, kEdit = 2, kSave = 3, kAdd = 4 };
enum class UIBarButtonItemStyle { kPlain = 0, kDone = 2 };

class ZP_EXPORT UIBarButtonItem : public std::enable_shared_from_this<UIBarButtonItem> {
 public:
  // Runs for as long as the target lives.
  using Action = std::function<void(UIBarButtonItem& sender)>;

  // Done and save are in the done style.
  UIBarButtonItem(UIBarButtonSystemItem systemItem, std::weak_ptr<const void> target,
                  Action action);
  UIBarButtonItem(std::string title, UIBarButtonItemStyle style, std::weak_ptr<const void> target,
                  Action action);
  // Drawn in the bar's tint.
  UIBarButtonItem(UIImageRef image, UIBarButtonItemStyle style, std::weak_ptr<const void> target,
                  Action action);
  // Shown as it is; nothing is done when it is touched.
  explicit UIBarButtonItem(std::shared_ptr<UIView> customView);
  UIBarButtonItem(const UIBarButtonItem&) = delete;
  UIBarButtonItem& operator=(const UIBarButtonItem&) = delete;

  [[nodiscard]] const std::optional<UIBarButtonSystemItem>& systemItem() const {
    return systemItem_;
  }
  [[nodiscard]] const std::string& title() const { return title_; }
  void setTitle(const std::string& title);
  [[nodiscard]] const UIImageRef& image() const { return image_; }
  void setImage(const UIImageRef& image);
  [[nodiscard]] UIBarButtonItemStyle style() const { return style_; }
  void setStyle(UIBarButtonItemStyle style);
  [[nodiscard]] bool isEnabled() const { return enabled_; }
  void setEnabled(bool enabled);
  [[nodiscard]] const std::shared_ptr<UIView>& customView() const { return customView_; }
  // What a screen reader calls it: the label that was set, else its text.
  [[nodiscard]] std::string accessibilityLabel() const;
  void setAccessibilityLabel(std::string label) { accessibilityLabel_ = std::move(label); }

  // As if it was tapped; whether it did anything, which one that is not enabled does not.
  bool performAction();

  // For the bar that shows it; one handler.
  void setChangeHandler(std::function<void()> handler) { changed_ = std::move(handler); }

 private:
  void changed();

  std::optional<UIBarButtonSystemItem> systemItem_;
  std::string title_;
  UIImageRef image_;
  std::shared_ptr<UIView> customView_;
  std::weak_ptr<const void> target_;
  Action action_;
  std::optional<std::string> accessibilityLabel_;
  std::function<void()> changed_;
  UIBarButtonItemStyle style_ = UIBarButtonItemStyle::kPlain;
  bool enabled_ = true;
};

using UIBarButtonItemRef = std::shared_ptr<UIBarButtonItem>;

}  // namespace zephyl
