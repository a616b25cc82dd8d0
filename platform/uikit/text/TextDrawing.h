// Measuring and drawing texts without a view. Any thread, a context's drawing apart.

#pragma once

#include <string_view>

#include "platform/Export.h"
#include "platform/uikit/CGContext.h"
#include "platform/uikit/CGGeometry.h"
#include "platform/uikit/NSAttributedString.h"
#include "platform/uikit/TextLayout.h"

namespace zephyl {

// By the installed host. Numbers that are not finite become 0.
[[nodiscard]] ZP_EXPORT TextLayoutRef layoutText(const NSAttributedString& text,
                                                 const TextStyle& style);

// Without a width to end lines at; not rounded.
[[nodiscard]] ZP_EXPORT CGSize sizeOfText(const NSAttributedString& text);
[[nodiscard]] ZP_EXPORT CGSize sizeOfText(std::string_view text, const UIFont& font);

// Around the text as its lines are wrapped into the size, from (0, 0); not rounded.
[[nodiscard]] ZP_EXPORT CGRect boundingRectWithSize(const NSAttributedString& text, CGSize size);

// From the upper left corner of the rectangle, aligned within it; of `style` all but the area
// counts.
ZP_EXPORT void drawText(CGContext& context, const NSAttributedString& text, const CGRect& rect,
                        const TextStyle& style = {});

// The next whole pixel of the main screen that is not less; the nearest one.
[[nodiscard]] ZP_EXPORT CGFloat ceiledToPixel(CGFloat points);
[[nodiscard]] ZP_EXPORT CGFloat roundedToPixel(CGFloat points);

}  // namespace zephyl
