#include "platform/uikit/TreeDump.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <utility>
#include <vector>

#include "platform/uikit/AccessibilityTree.h"
#include "platform/uikit/UIView.h"

namespace zephyl {
namespace {

// "12", "0.5": no more digits than the number needs.
std::string number(CGFloat value) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.6g", value == 0 ? 0.0 : value);
  return text.data();
}

std::string quoted(const std::string& text) {
  constexpr std::size_t kMost = 200;
  std::string result = "\"";
  for (const char c : text.substr(0, kMost)) {
    if (c == '\n') {
      result += "\\n";
    } else if (c == '"' || c == '\\') {
      result += '\\';
      result += c;
    } else {
      result += c;
    }
  }
  // A text that is cut ends before the character that the cut would tear.
  while (text.size() > kMost && (static_cast<unsigned char>(result.back()) & 0xC0U) == 0x80U) {
    result.pop_back();
  }
  if (text.size() > kMost && static_cast<unsigned char>(result.back()) >= 0xC0U) {
    result.pop_back();
  }
  result += text.size() > kMost ? "...\"" : "\"";
  return result;
}

std::string geometryOf(const UIView& view) {
  const CGRect frame = view.frame();
  std::string text = " (" + number(frame.x()) + " " + number(frame.y()) + "; ";
  text += number(frame.width()) + " " + number(frame.height()) + ")";
  if (view.transform() != CGAffineTransformIdentity) {
    const CGAffineTransform t = view.transform();
    text += " transform";
    for (const CGFloat part : {t.a, t.b, t.c, t.d, t.tx, t.ty}) {
      text += " ";
      text += number(part);
    }
  }
  return text;
}

// A channel from 0 to 1 as a byte.
unsigned byteOf(CGFloat channel) {
  return static_cast<unsigned>(std::lround(std::clamp(channel, 0.0, 1.0) * 255));
}

std::string appearanceOf(const UIView& view) {
  std::string text;
  if (view.isHidden()) {
    text += " hidden";
  }
  if (view.alpha() != 1) {
    text += " alpha ";
    text += number(view.alpha());
  }
  if (const UIColor background = view.backgroundColor(); background.channels().alpha > 0) {
    std::array<char, 48> hexadecimal{};
    const UIColor::Channels c = background.channels();
    std::snprintf(hexadecimal.data(), hexadecimal.size(), " #%02x%02x%02x%02x", byteOf(c.red),
                  byteOf(c.green), byteOf(c.blue), byteOf(c.alpha));
    text += hexadecimal.data();
  }
  return text;
}

std::string accessibilityOf(const UIView& view) {
  std::string text = nameOfRole(view.accessibilityRole());
  if (const std::string label = view.accessibilityLabel(); !label.empty()) {
    text += " " + quoted(label);
  }
  if (const std::string value = view.accessibilityValue(); !value.empty()) {
    text += " value " + quoted(value);
  }
  const UIAccessibilityState state = view.accessibilityState();
  for (const auto& [is, name] :
       {std::pair{!state.enabled, " disabled"}, std::pair{state.selected, " selected"},
        std::pair{state.checked, " checked"}, std::pair{state.focused, " focused"},
        std::pair{state.busy, " busy"}}) {
    text += is ? name : "";
  }
  return text;
}

struct Level {
  const UIView* view;
  std::size_t depth;
};

// The subviews in their order, to be taken from the end of a stack.
void pushSubviews(std::vector<Level>& stack, const Level& at) {
  const auto& subviews = at.view->subviews();
  for (auto subview = subviews.rbegin(); subview != subviews.rend(); ++subview) {
    stack.push_back({subview->get(), at.depth + 1});
  }
}

}  // namespace

std::string recursiveDescription(const UIView& view) {
  std::string text;
  std::vector<Level> stack{{&view, 0}};
  while (!stack.empty()) {
    const Level at = stack.back();
    stack.pop_back();
    text.append(at.depth * 2, ' ');
    text += at.view->className();
    if (at.view->tag() != 0) {
      text += " #" + std::to_string(at.view->tag());
    }
    text += geometryOf(*at.view) + appearanceOf(*at.view);
    if (const std::string shown = at.view->describe(); !shown.empty()) {
      text += " " + quoted(shown);
    }
    if (at.view->isAccessibilityElement()) {
      text += " [" + accessibilityOf(*at.view) + "]";
    }
    text += "\n";
    pushSubviews(stack, at);
  }
  return text;
}

std::string accessibilityDescription(UIView& view) {
  std::string text;
  const std::shared_ptr<UIView> scope = accessibilityScopeIn(view);
  std::vector<std::pair<std::shared_ptr<UIView>, std::size_t>> stack{{scope, 0}};
  while (!stack.empty()) {
    const auto [at, depth] = stack.back();
    stack.pop_back();
    const bool isElement = at->isAccessibilityElement();
    if (isElement) {
      text.append(depth * 2, ' ');
      text += accessibilityOf(*at) + "\n";
    }
    const auto elements = accessibilityElementsIn(*at);
    for (auto element = elements.rbegin(); element != elements.rend(); ++element) {
      stack.emplace_back(*element, isElement ? depth + 1 : depth);
    }
  }
  return text;
}

std::string nameOfRole(UIAccessibilityRole role) {
  switch (role) {
    case UIAccessibilityRole::kNone:
      return "none";
    case UIAccessibilityRole::kStaticText:
      return "staticText";
    case UIAccessibilityRole::kImage:
      return "image";
    case UIAccessibilityRole::kButton:
      return "button";
    case UIAccessibilityRole::kLink:
      return "link";
    case UIAccessibilityRole::kSwitch:
      return "switch";
    case UIAccessibilityRole::kTextField:
      return "textField";
    case UIAccessibilityRole::kSearchField:
      return "searchField";
    case UIAccessibilityRole::kSlider:
      return "slider";
    case UIAccessibilityRole::kSegment:
      return "segment";
    case UIAccessibilityRole::kTable:
      return "table";
    case UIAccessibilityRole::kRow:
      return "row";
    case UIAccessibilityRole::kHeader:
      return "header";
    case UIAccessibilityRole::kAlert:
      return "alert";
    case UIAccessibilityRole::kProgress:
      return "progress";
    case UIAccessibilityRole::kNavigationBar:
      return "navigationBar";
    case UIAccessibilityRole::kWindow:
      return "window";
  }
  return "none";
}

}  // namespace zephyl
