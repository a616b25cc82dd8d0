// What a screen reader is told of an element of the view tree. Every class derives it from what it
// shows; a screen may set a label of its own. Main thread.

#pragma once

#include <optional>
#include <string>
#include <utility>

#include "platform/Export.h"

namespace zephyl {

enum class UIAccessibilityRole {
  kNone,
  kStaticText,
  kImage,
  kButton,
  kLink,
  kSwitch,
  kTextField,
  kSearchField,
  kSlider,
  kSegment,
  kTable,
  kRow,
  kHeader,
  kAlert,
  kProgress,
  kNavigationBar,
  kWindow
};

struct UIAccessibilityState {
  bool enabled = true;
  bool selected = false;
  bool checked = false;
  bool focused = false;
  bool busy = false;
  friend bool operator==(const UIAccessibilityState&, const UIAccessibilityState&) = default;
};

class ZP_EXPORT UIAccessibility {
 public:
  virtual ~UIAccessibility() = default;

  // An element is read as one; what is not one is passed through to what it contains.
  [[nodiscard]] virtual bool isAccessibilityElement() const { return false; }
  [[nodiscard]] virtual UIAccessibilityRole accessibilityRole() const {
    return UIAccessibilityRole::kNone;
  }
  // What it is called: the label that was set, else what it shows.
  [[nodiscard]] std::string accessibilityLabel() const {
    return label_ ? *label_ : derivedAccessibilityLabel();
  }
  void setAccessibilityLabel(std::string label) { label_ = std::move(label); }
  // What it holds: a text, a position, a count. Empty for none.
  [[nodiscard]] virtual std::string accessibilityValue() const { return {}; }
  [[nodiscard]] virtual UIAccessibilityState accessibilityState() const { return {}; }
  // Whether nothing outside it can be reached while it is shown.
  [[nodiscard]] virtual bool accessibilityViewIsModal() const { return false; }
  // As if it was tapped in its middle. Whether it did anything.
  virtual bool accessibilityActivate() { return false; }
  // For what can be adjusted: a step up or down.
  virtual void accessibilityIncrement() {}
  virtual void accessibilityDecrement() {}

 protected:
  [[nodiscard]] virtual std::string derivedAccessibilityLabel() const { return {}; }

 private:
  std::optional<std::string> label_;
};

}  // namespace zephyl
