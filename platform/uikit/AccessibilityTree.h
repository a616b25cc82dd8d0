// Which elements of a view tree a screen reader comes by, and how they lie in one another: the one
// place of this rule, for dumps, keyboards and the bridge to the desktop. Main thread.

#pragma once

#include <memory>
#include <vector>

#include "platform/Export.h"
#include "platform/uikit/UIView.h"

namespace zephyl {

// The elements next below `view`, in the order of the tree; what is hidden or nearly clear is left
// out with all in it. An element that is read as one thing (a row, a control) has its texts and
// pictures in its own label: of what lies in it, only what can be acted on is an element too.
[[nodiscard]] ZP_EXPORT std::vector<std::shared_ptr<UIView>> accessibilityElementsIn(UIView& view);

// The nearest element above; null when there is none.
[[nodiscard]] ZP_EXPORT UIView* accessibilityContainerOf(const UIView& view);

// The part of the tree that can be reached: what is topmost of those views that keep the user to
// themselves (an alert), else `root`.
[[nodiscard]] ZP_EXPORT std::shared_ptr<UIView> accessibilityScopeIn(UIView& root);

}  // namespace zephyl
