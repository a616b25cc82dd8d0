#include "apps/zephyls/render/Script.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <memory>
#include <set>
#include <string_view>
#include <utility>

#include "platform/uikit/AccessibilityTree.h"
#include "platform/uikit/CADisplayLink.h"
#include "platform/uikit/TextInput.h"
#include "platform/uikit/UIKitHost.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/tables/UITableView.h"

#include "apps/common/CommandError.h"

namespace zephyl::app::render {

namespace {

constexpr double kTapSeconds = 0.05;
constexpr int kSwipeMoves = 12;
constexpr double kSwipeDistance = 160;
constexpr double kFrameSeconds = 1.0 / 60;

struct NamedKey {
  std::string_view name;
  UIKey key;
};

constexpr auto kKeys = std::to_array<NamedKey>({
    {"Up", UIKey::kUp},
    {"Down", UIKey::kDown},
    {"Left", UIKey::kLeft},
    {"Right", UIKey::kRight},
    {"Home", UIKey::kHome},
    {"End", UIKey::kEnd},
    {"PageUp", UIKey::kPageUp},
    {"PageDown", UIKey::kPageDown},
    {"Tab", UIKey::kTab},
    {"Return", UIKey::kReturn},
    {"Space", UIKey::kSpace},
    {"Escape", UIKey::kEscape},
    {"Delete", UIKey::kDelete},
    {"Backspace", UIKey::kBackspace},
});

CGPoint middleOf(const UIView& view) {
  return view.convertPointToView({view.bounds().midX(), view.bounds().midY()}, nullptr);
}

// The name of an element, or what it shows where it has none.
std::string nameOf(const UIView& element) {
  const std::string label = element.accessibilityLabel();
  return label.empty() ? element.accessibilityValue() : label;
}

// Null when it is in none.
const UITableView* tableAround(const UIView& element) {
  for (const UIView* at = &element; at != nullptr; at = at->superview()) {
    if (const auto* const table = dynamic_cast<const UITableView*>(at)) {
      return table;
    }
  }
  return nullptr;
}

bool takePrefix(std::string_view& name, std::string_view prefix) {
  const bool has = name.starts_with(prefix) && name.size() > prefix.size();
  name.remove_prefix(has ? prefix.size() : 0);
  return has;
}

bool isLetterOrDigit(std::string_view name) {
  return name.size() == 1 && std::isalnum(static_cast<unsigned char>(name.front())) != 0;
}

UIKeyPress keyNamed(const std::string& name) {
  UIKeyPress press;
  std::string_view bare = name;
  press.control = takePrefix(bare, "Ctrl+");
  press.shift = takePrefix(bare, "Shift+");
  const auto* const found = std::find_if(
      kKeys.begin(), kKeys.end(), [bare](const NamedKey& each) { return each.name == bare; });
  if (found != kKeys.end()) {
    press.key = found->key;
    return press;
  }
  if (isLetterOrDigit(bare)) {
    press.characters = bare;
    return press;
  }
  std::string message = "there is no key \"" + name + "\"; there are:";
  for (const NamedKey& each : kKeys) {
    message.append(" ").append(each.name);
  }
  throw CommandError(message + ", letters and digits, each also with Ctrl+, Shift+ or Ctrl+Shift+",
                     kWrongUsage);
}

}  // namespace

void Script::run(const std::vector<ScriptStep>& steps) {
  for (const ScriptStep& step : steps) {
    run(step);
    stage_.settle();
  }
}

void Script::run(const ScriptStep& step) {
  switch (step.kind) {
    case ScriptStep::Kind::kTap:
      return tap(*find(step.text));
    case ScriptStep::Kind::kSwipe:
      return swipe(*find(step.text));
    case ScriptStep::Kind::kType:
      return type(step.text);
    case ScriptStep::Kind::kKey:
      return press(step.text);
  }
}

void Script::tap(const UIView& element) {
  const CGPoint at = middleOf(element);
  const double now = uikitHost().displayLink().timestamp();
  stage_.window.sendTouch({0, UITouchPhase::kBegan, at, now, /*secondary=*/false});
  stage_.window.sendTouch({0, UITouchPhase::kEnded, at, now + kTapSeconds, /*secondary=*/false});
}

// Towards the leading side, which uncovers what is on the trailing one.
void Script::swipe(const UIView& element) {
  const UITableView* const table = tableAround(element);
  const double direction = UIScreen::mainScreen().isRightToLeft() ? 1 : -1;
  const CGPoint from = middleOf(element);
  CGPoint at = from;
  double now = uikitHost().displayLink().timestamp();
  stage_.window.sendTouch({0, UITouchPhase::kBegan, at, now, /*secondary=*/false});
  for (int move = 1; move <= kSwipeMoves; ++move) {
    now += kFrameSeconds;
    at.x = from.x + direction * kSwipeDistance * move / kSwipeMoves;
    stage_.window.sendTouch({0, UITouchPhase::kMoved, at, now, /*secondary=*/false});
  }
  const bool moves = table != nullptr && table->indexPathForSwipedRow();
  // After a rest, so that nothing is flung.
  stage_.window.sendTouch({0, UITouchPhase::kEnded, at, now + 1, /*secondary=*/false});
  if (!moves) {
    throw CommandError("\"" + nameOf(element) + "\" cannot be swiped aside", kWrongUsage);
  }
}

void Script::type(const std::string& text) {
  TextInputClient* const client = stage_.typedInto();
  if (client == nullptr) {
    throw CommandError("cannot type \"" + text + "\": nothing is typed into; tap a field first",
                       kWrongUsage);
  }
  typed_.type(*client, text);
}

// While something is typed into, the keys of its text and those that end that are the host's to
// tell.
void Script::press(const std::string& name) {
  const UIKeyPress press = keyNamed(name);
  TextInputClient* const client = stage_.typedInto();
  if (client != nullptr && press.key == UIKey::kReturn) {
    client->textInputDidReturn();
  } else if (client != nullptr && press.key == UIKey::kTab) {
    client->textInputDidTab(/*forwards=*/!press.shift);
  } else if (client != nullptr && typed_.press(*client, press)) {
    return;
  } else if (client != nullptr || !stage_.handleShortcut || !stage_.handleShortcut(press)) {
    stage_.window.sendKey(press);
  }
}

std::vector<std::shared_ptr<UIView>> Script::elements() const {
  std::vector<std::shared_ptr<UIView>> found;
  std::vector<std::shared_ptr<UIView>> stack{accessibilityScopeIn(stage_.window)};
  while (!stack.empty()) {
    const std::shared_ptr<UIView> at = stack.back();
    stack.pop_back();
    if (at->isAccessibilityElement() &&
        CGRectContainsPoint(stage_.window.bounds(), middleOf(*at))) {
      found.push_back(at);
    }
    const auto below = accessibilityElementsIn(*at);
    stack.insert(stack.end(), below.rbegin(), below.rend());
  }
  return found;
}

std::shared_ptr<UIView> Script::find(const std::string& text) const {
  const auto all = elements();
  std::shared_ptr<UIView> best;
  for (const auto& element : all) {
    const bool isFirst = best == nullptr;
    if (nameOf(*element) == text && (isFirst || element->isDescendantOfView(best.get()))) {
      best = element;
    }
  }
  if (best == nullptr) {
    const auto holding = std::find_if(all.begin(), all.end(), [&](const auto& element) {
      return nameOf(*element).find(text) != std::string::npos;
    });
    best = holding == all.end() ? nullptr : *holding;
  }
  if (best != nullptr) {
    return best;
  }
  std::string message = "nothing on the screen is called \"" + text + "\"; there is:";
  std::set<std::string> told;
  for (const auto& element : all) {
    const std::string name = nameOf(*element);
    if (!name.empty() && told.insert(name).second) {
      message.append(" \"").append(name).append("\"");
    }
  }
  throw CommandError(message, kWrongUsage);
}

}  // namespace zephyl::app::render
