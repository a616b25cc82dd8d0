// The screens that can be rendered, on the user's own data.
//
// To add one: write a function that makes it, and list it in Screens.cpp.

#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "model/Zephyl.h"

namespace zephyl {
class UIViewController;
}

namespace zephyl::app {

class Session;

namespace render {

struct ShownScreen {
  std::shared_ptr<UIViewController> controller;
  // What the screen does not keep alive itself, such as a delegate.
  std::shared_ptr<const void> kept;
  // What opens the screen from the one that is shown, once that is in a window. Null for nothing.
  std::function<void()> open = nullptr;
};

// What of the user's a screen is about, beside all.
enum class ScreenSubject { kNothing, kGroup, kConversation };

struct Screen {
  // The name on the command line.
  std::string_view name;
  std::string_view help;
  // The groups and conversations of the session are there, and the owner has agreed to the group
  // that is shown. Throws CommandError.
  ShownScreen (*make)(Session& session);
  ScreenSubject subject = ScreenSubject::kNothing;
};

// The group that a screen about one is of: the one that was named, else the first of the user's
// that no fingerprint stands before, else the first. Throws CommandError when there is none.
[[nodiscard]] ZephylRef groupToShow(Session& session);

// In the order of the list.
[[nodiscard]] const std::vector<Screen>& allScreens();
// Null when there is none.
[[nodiscard]] const Screen* screenNamed(std::string_view name);

}  // namespace render
}  // namespace zephyl::app
