// One of the answers to an alert. Main thread.

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "platform/Export.h"

namespace zephyl {

// With the platform's values.
enum class UIAlertActionStyle { kDefault = 0, kCancel = 1, kDestructive = 2 };

class ZP_EXPORT UIAlertAction {
 public:
  using Handler = std::function<void(UIAlertAction& action)>;

  UIAlertAction(std::string title, UIAlertActionStyle style, Handler handler)
      : title_(std::move(title)), handler_(std::move(handler)), style_(style) {}
  UIAlertAction(const UIAlertAction&) = delete;
  UIAlertAction& operator=(const UIAlertAction&) = delete;

  [[nodiscard]] static std::shared_ptr<UIAlertAction> actionWithTitle(std::string title,
                                                                      UIAlertActionStyle style,
                                                                      Handler handler) {
    return std::make_shared<UIAlertAction>(std::move(title), style, std::move(handler));
  }

  [[nodiscard]] const std::string& title() const { return title_; }
  [[nodiscard]] UIAlertActionStyle style() const { return style_; }
  [[nodiscard]] bool isEnabled() const { return enabled_; }
  // Before the alert is shown.
  void setEnabled(bool enabled) { enabled_ = enabled; }

  // From the alert, once it has gone.
  void perform() {
    if (handler_) {
      handler_(*this);
    }
  }

 private:
  std::string title_;
  Handler handler_;
  UIAlertActionStyle style_;
  bool enabled_ = true;
};

using UIAlertActionRef = std::shared_ptr<UIAlertAction>;

}  // namespace zephyl
