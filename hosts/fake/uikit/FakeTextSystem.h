// Texts whose size can be told by counting: every code point is half an em wide, Chinese, Japanese,
// Korean characters and emoji a whole one, joiners and controls nothing. A line is 1.2 times the
// font's size high; weights make no difference. Any thread.
//
// Lines end at spaces, which then hang over the end; a word that fits in no line is cut. Between
// wide characters a line may end anywhere. U+2026 stands for what is left out.

#pragma once

#include "platform/uikit/TextLayout.h"

#include "hosts/fake/uikit/FakeScreen.h"

namespace zephyl::fake {

class FakeTextSystem : public TextSystem {
 public:
  // `screen` tells which side is the leading one.
  explicit FakeTextSystem(FakeScreen& screen) : screen_(screen) {}

  UIFont::Metrics metrics(const UIFont& font) override;
  TextLayoutRef layout(const NSAttributedString& text, const TextStyle& style) override;

 private:
  FakeScreen& screen_;
};

}  // namespace zephyl::fake
