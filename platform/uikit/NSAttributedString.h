// A text with fonts and colours by run, and the way its lines are set. A value.
//
// Texts are UTF-8; what is not valid UTF-8 is replaced by U+FFFD where the string is made. Ranges
// count bytes.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Export.h"
#include "platform/uikit/UIColor.h"
#include "platform/uikit/UIFont.h"

namespace zephyl {

// kNatural is the leading side of the user's language.
enum class NSTextAlignment { kLeft = 0, kCenter = 1, kRight = 2, kNatural = 4 };

enum class NSLineBreakMode {
  kWordWrapping,
  kCharWrapping,
  kClipping,
  kTruncatingHead,
  kTruncatingTail,
  kTruncatingMiddle
};

class ZP_EXPORT NSAttributedString {
 public:
  struct Attributes {
    UIFont font = UIFont::systemFontOfSize(17);
    UIColor color = UIColor::labelColor();
    friend bool operator==(const Attributes&, const Attributes&) = default;
  };
  // The runs cover the text without gaps or overlaps, in order.
  struct Run {
    std::size_t start = 0;
    std::size_t length = 0;
    Attributes attributes;
    friend bool operator==(const Run&, const Run&) = default;
  };

  NSAttributedString() = default;
  NSAttributedString(std::string_view text, const Attributes& attributes);

  void append(const NSAttributedString& more);
  // The part of the range that lies outside the text, or inside a character, is left alone.
  void setAttributes(std::size_t start, std::size_t length, const Attributes& attributes);

  [[nodiscard]] const std::string& string() const { return text_; }
  [[nodiscard]] const std::vector<Run>& runs() const { return runs_; }
  [[nodiscard]] bool empty() const { return text_.empty(); }

  friend bool operator==(const NSAttributedString&, const NSAttributedString&) = default;

 private:
  std::string text_;
  std::vector<Run> runs_;
};

}  // namespace zephyl
