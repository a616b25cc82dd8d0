#include "platform/uikit/controllers/UIBarButtonItem.h"

#include "platform/uikit/UIKitText.h"
#include "platform/uikit/UIView.h"

namespace zephyl {

namespace {

std::string systemText(UIBarButtonSystemItem item) {
  switch (item) {
    case UIBarButtonSystemItem::kDone:
      return uikitText("Done");
    case UIBarButtonSystemItem::kCancel:
      return uikitText("Cancel");
    case UIBarButtonSystemItem::kEdit:
      return uikitText("Edit");
    case UIBarButtonSystemItem::kSave:
      return uikitText("Save");
    case UIBarButtonSystemItem::kAdd:
      return uikitText("Add");
  }
  return {};
}

}  // namespace

UIBarButtonItem::UIBarButtonItem(UIBarButtonSystemItem systemItem, std::weak_ptr<const void> target,
                                 Action action)
    : systemItem_(systemItem), target_(std::move(target)), action_(std::move(action)) {
  if (systemItem == UIBarButtonSystemItem::kAdd) {
    accessibilityLabel_ = systemText(systemItem);
  } else {
    title_ = systemText(systemItem);
  }
  if (systemItem == UIBarButtonSystemItem::kDone || systemItem == UIBarButtonSystemItem::kSave) {
    style_ = UIBarButtonItemStyle::kDone;
  }
}

UIBarButtonItem::UIBarButtonItem(std::string title, UIBarButtonItemStyle style,
                                 std::weak_ptr<const void> target, Action action)
    : title_(std::move(title)),
      target_(std::move(target)),
      action_(std::move(action)),
      style_(style) {}

UIBarButtonItem::UIBarButtonItem(UIImageRef image, UIBarButtonItemStyle style,
                                 std::weak_ptr<const void> target, Action action)
    : image_(std::move(image)),
      target_(std::move(target)),
      action_(std::move(action)),
      style_(style) {}

UIBarButtonItem::UIBarButtonItem(std::shared_ptr<UIView> customView)
    : customView_(std::move(customView)) {}

void UIBarButtonItem::setTitle(const std::string& title) {
  if (title_ != title) {
    title_ = title;
    changed();
  }
}

void UIBarButtonItem::setImage(const UIImageRef& image) {
  if (image_ != image) {
    image_ = image;
    changed();
  }
}

void UIBarButtonItem::setStyle(UIBarButtonItemStyle style) {
  if (style_ != style) {
    style_ = style;
    changed();
  }
}

void UIBarButtonItem::setEnabled(bool enabled) {
  if (enabled_ != enabled) {
    enabled_ = enabled;
    changed();
  }
}

std::string UIBarButtonItem::accessibilityLabel() const {
  return accessibilityLabel_ ? *accessibilityLabel_ : title_;
}

bool UIBarButtonItem::performAction() {
  const auto target = target_.lock();
  if (!enabled_ || !action_ || target == nullptr) {
    return false;
  }
  // Alive for the call, which may replace the screen's buttons.
  const auto self = shared_from_this();
  const Action action = action_;
  action(*this);
  return true;
}

void UIBarButtonItem::changed() {
  if (changed_) {
    changed_();
  }
}

}  // namespace zephyl
