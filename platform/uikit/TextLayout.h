// Measuring and setting texts: the seam `TextSystem`, and the laid out text that it gives.

#pragma once

#include <cstddef>
#include <memory>

#include "platform/uikit/CGGeometry.h"
#include "platform/uikit/NSAttributedString.h"
#include "platform/uikit/UIFont.h"

namespace zephyl {

// How a text is set into an area.
struct TextStyle {
  // The width at which lines end and to which they are aligned; and the height that every line has
  // to fit into, the first excepted.
  CGSize area{1e6, 1e6};
  // 0 is any number.
  int maximumLines = 0;
  NSLineBreakMode lineBreakMode = NSLineBreakMode::kWordWrapping;
  NSTextAlignment alignment = NSTextAlignment::kNatural;
  friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

// Lines of text, ready to be drawn. Immutable; any thread.
class TextLayout {
 public:
  virtual ~TextLayout() = default;

  // The extent of what is drawn: the widest line and the sum of the line heights.
  [[nodiscard]] virtual CGSize size() const = 0;
  [[nodiscard]] virtual int lineCount() const = 0;
  // Whether lines were shortened or left out.
  [[nodiscard]] virtual bool isTruncated() const = 0;
  // From the top to the baseline of the first line.
  [[nodiscard]] virtual CGFloat firstBaseline() const = 0;
  // What is drawn, for tests and dumps.
  [[nodiscard]] virtual const NSAttributedString& text() const = 0;
};

using TextLayoutRef = std::shared_ptr<const TextLayout>;

// Any thread. The cost of laying out does not grow with text that the area cannot show.
class TextSystem {
 public:
  virtual ~TextSystem() = default;

  [[nodiscard]] virtual UIFont::Metrics metrics(const UIFont& font) = 0;
  [[nodiscard]] virtual TextLayoutRef layout(const NSAttributedString& text,
                                             const TextStyle& style) = 0;
};

}  // namespace zephyl
