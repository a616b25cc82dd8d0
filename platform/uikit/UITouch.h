// A finger on the screen, or the pointer with its button down, and keys of a keyboard. Values that
// the host hands to a window; main thread.

#pragma once

#include <cstdint>
#include <string>

#include "platform/uikit/CGGeometry.h"

namespace zephyl {

enum class UITouchPhase { kBegan, kMoved, kEnded, kCancelled };

struct UITouch {
  // Tells fingers apart while they are down; the pointer is 0.
  int identifier = 0;
  UITouchPhase phase = UITouchPhase::kBegan;
  // In the window.
  CGPoint location;
  // Seconds of the display link's clock.
  double timestamp = 0;
  // By the second button or a long press of the pointer: asks for a menu, begins no drag.
  bool secondary = false;
};

// A turn of a wheel or two fingers on a pad, in points; positive moves the contents up and left.
struct UIScrollEvent {
  CGPoint location;
  CGFloat dx = 0;
  CGFloat dy = 0;
};

enum class UIKey {
  kCharacter,
  kUp,
  kDown,
  kLeft,
  kRight,
  kHome,
  kEnd,
  kPageUp,
  kPageDown,
  kTab,
  kReturn,
  kSpace,
  kEscape,
  kDelete,
  kBackspace
};

struct UIKeyPress {
  UIKey key = UIKey::kCharacter;
  // What the key types; empty for keys that type nothing.
  std::string characters;
  bool shift = false;
  bool control = false;
};

}  // namespace zephyl
