// Small types of tables and their rows, with the platform's values.

#pragma once

#include <limits>

#include "platform/uikit/CGGeometry.h"

namespace zephyl {

enum class UITableViewStyle { kPlain = 0, kGrouped = 1 };

enum class UITableViewCellStyle { kDefault = 0, kValue1 = 1, kValue2 = 2, kSubtitle = 3 };

enum class UITableViewCellAccessoryType { kNone = 0, kDisclosureIndicator = 1, kCheckmark = 3 };

// The three that show a selection do so in the same grey.
enum class UITableViewCellSelectionStyle { kNone = 0, kBlue = 1, kGray = 2, kDefault = 3 };

enum class UITableViewCellSeparatorStyle { kNone = 0, kSingleLine = 1 };

// Delete and insert together let rows be ticked while the table is edited.
enum class UITableViewCellEditingStyle { kNone = 0, kDelete = 1, kInsert = 2, kMultiSelect = 3 };

enum class UITableViewScrollPosition { kNone = 0, kTop = 1, kMiddle = 2, kBottom = 3 };

// How rows come and go. All but none and fade slide a little, and fade.
enum class UITableViewRowAnimation {
  kFade = 0,
  kRight = 1,
  kLeft = 2,
  kTop = 3,
  kBottom = 4,
  kNone = 5,
  kMiddle = 6,
  kAutomatic = 100
};

// A height that the table chooses itself.
constexpr CGFloat UITableViewAutomaticDimension = -1;

}  // namespace zephyl
