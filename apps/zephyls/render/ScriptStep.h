// One thing that is done with a screen before its picture is taken. A value.

#pragma once

#include <string>

namespace zephyl::app::render {

struct ScriptStep {
  enum class Kind { kTap, kSwipe, kType, kKey };
  Kind kind = Kind::kTap;
  // Taps and swipes: what is seen or read of the element. Typing: the text. Keys: the name.
  std::string text;
};

}  // namespace zephyl::app::render
