// The phone's system font on this machine: Inter, which reads like it, its display cut for titles,
// colour emoji, and fonts for the scripts that Inter lacks. Any thread, while there is a
// QGuiApplication.

#pragma once

#include <QFont>

#include "platform/uikit/UIFont.h"

namespace zephyl::linux_host {

// Sizes are pixels of a screen with a scale of 1. Not hinted, so that widths grow with the size.
[[nodiscard]] QFont screenFont(const UIFont& font);

// The same for emoji: the pictures come first, also for signs that Inter has in black.
[[nodiscard]] QFont emojiFont(const UIFont& font);

// The phone's, not Inter's, whose lines are 1.21 times the size high: rows and labels are made for
// lines of 1.193 times the size (20.29 points at 17), whichever font a character comes from. The
// height of capitals is Inter's.
[[nodiscard]] UIFont::Metrics screenMetrics(const UIFont& font);

}  // namespace zephyl::linux_host
