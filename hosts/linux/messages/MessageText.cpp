#include "hosts/linux/messages/MessageText.h"

#include <utility>

#include "hosts/linux/messages/TypedStream.h"
#include "hosts/linux/messages/Utf8Text.h"

namespace zephyl::linux_host {
namespace {

MessageText shown(std::string_view bytes) {
  const std::string text = wellFormedUtf8(bytes);
  constexpr std::string_view kMark = "\xEF\xBF\xBC";
  std::string rest;
  std::size_t from = 0;
  for (std::size_t at = text.find(kMark); at != std::string::npos; at = text.find(kMark, from)) {
    rest.append(text, from, at - from);
    from = at + kMark.size();
  }
  rest.append(text, from);
  return {.text = std::move(rest), .isRepaired = text != bytes};
}

}  // namespace

MessageText messageText(std::string_view text, std::span<const std::byte> attributedBody) {
  MessageText plain = shown(text);
  if (!plain.text->empty() || attributedBody.empty()) {
    return plain;
  }
  if (const auto decoded = TypedStream::text(attributedBody)) {
    return shown(*decoded);
  }
  // A plain column of marks alone has said it all.
  return text.empty() ? MessageText() : plain;
}

}  // namespace zephyl::linux_host
