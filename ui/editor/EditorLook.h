// What the files of the editor share about its looks. Main thread.

#pragma once

#include "platform/uikit/CGGeometry.h"
#include "platform/uikit/UIColor.h"
#include "platform/uikit/UIScreen.h"

#include "services/ZPUtils.h"

namespace zephyl::editor {

// What footers are used again by.
inline constexpr char kFooterIdentifier[] = "TableViewSectionHeaderViewIdentifier";

// The sections of the table.
enum Section { kTitleSection, kFlagsSection, kHidingSection, kMaskingSection, kMembersSection };
inline constexpr int kSectionCount = 5;

// Of rows and what lies in them.
[[nodiscard]] inline UIColor backgroundColor() {
  return ZPUtils::isIOS13() ? UIColor::systemBackgroundColor() : UIColor::whiteColor();
}

// Where something lies that is `x` from the leading side of what is `room` wide.
[[nodiscard]] inline CGFloat leadingX(CGFloat x, CGFloat width, CGFloat room) {
  return UIScreen::mainScreen().isRightToLeft() ? room - x - width : x;
}

}  // namespace zephyl::editor
