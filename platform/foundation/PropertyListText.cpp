#include "platform/foundation/PropertyListText.h"

#include <algorithm>

#include "platform/foundation/Utf8.h"

namespace zephyl::detail {

DecodedText::DecodedText(std::string_view bytes) {
  constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
  constexpr std::string_view kBigEndianMark = "\xFE\xFF";
  constexpr std::string_view kLittleEndianMark = "\xFF\xFE";
  const bool isBigEndian = bytes.starts_with(kBigEndianMark);
  if (!isBigEndian && !bytes.starts_with(kLittleEndianMark)) {
    unchanged_ = bytes.starts_with(kUtf8Mark) ? bytes.substr(kUtf8Mark.size()) : bytes;
    return;
  }
  Utf16Conversion conversion = utf8FromUtf16(
      bytes.substr(2), isBigEndian ? ByteOrder::kBigEndian : ByteOrder::kLittleEndian);
  converted_ = std::move(conversion.text);
  if (conversion.invalidAt != std::string_view::npos) {
    const std::size_t at = converted_->size();
    error_ = PropertyListError{"text that is not UTF-16", at, lineAt(*converted_, at)};
  }
}

std::size_t lineAt(std::string_view text, std::size_t offset) {
  const std::string_view before = text.substr(0, offset);
  return 1 + static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
}

}  // namespace zephyl::detail
