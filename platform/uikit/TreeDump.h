// A view tree as text, for tests and for `zephyls render --tree`. Main thread.

#pragma once

#include <string>

#include "platform/Export.h"
#include "platform/uikit/UIAccessibility.h"

namespace zephyl {

class UIView;

// One line a view, two blanks deeper a level:
//
//   UILabel #3 (36 2; 354 20) "Work (3)" [staticText "Work (3)"]
//
// class, tag when it is not 0, frame, what differs from a plain view (hidden, alpha, transform,
// background), what it shows, and in brackets what a screen reader is told.
[[nodiscard]] ZP_EXPORT std::string recursiveDescription(const UIView& view);

// Only the elements that a screen reader comes by, one a line, two blanks deeper inside another:
//
//   row "Enable"
//     switch "Enable" value "1"
[[nodiscard]] ZP_EXPORT std::string accessibilityDescription(UIView& view);

// "switch", "staticText"...
[[nodiscard]] ZP_EXPORT std::string nameOfRole(UIAccessibilityRole role);

}  // namespace zephyl
