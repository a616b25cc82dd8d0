// The tags by which the editor's controls and labels are found again and told apart.

#pragma once

#include <cstdint>

#include "platform/Export.h"

namespace zephyl {

struct ZP_EXPORT ZephylViewTags {
  // Switches.
  static constexpr std::int64_t kEnableTag = 4321;
  // Kept: the segmented control above the members bears it too; it sends another action.
  static constexpr std::int64_t kPasswordProtectedTag = 4322;
  static constexpr std::int64_t kHideInDefaultGroupsTag = 5321;
  static constexpr std::int64_t kMaskOnLockScreenTag = 6321;
  // Text fields. There is none for the subtitle here.
  static constexpr std::int64_t kTitleTag = 4532;
  static constexpr std::int64_t kSubTitleTag = 4533;
  static constexpr std::int64_t kMaskedMessageTag = 6532;
  // The swatch in the row of the marker's colour.
  static constexpr std::int64_t kMarkerColorTag = 87234;
  // The group's picture, a button, and the caption on it, a label. Neither is made by the editor.
  static constexpr std::int64_t kPictureTag = 4521;
  static constexpr std::int64_t kPictureCaptionTag = 4522;
  // The text of a footer.
  static constexpr std::int64_t kFooterLabelTag = 1;
};

}  // namespace zephyl
