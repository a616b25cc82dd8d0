#include "hosts/linux/messages/MessageText.h"

#include "hosts/linux/messages/TypedStream.h"
#include "hosts/linux/messages/Utf8Text.h"

namespace zephyl::linux_host {
namespace {

std::string withoutAttachmentMarks(std::string text) {
  constexpr std::string_view kMark = "\xEF\xBF\xBC";
  std::string rest;
  std::size_t from = 0;
  for (std::size_t at = text.find(kMark); at != std::string::npos; at = text.find(kMark, from)) {
    rest.append(text, from, at - from);
    from = at + kMark.size();
  }
  return from == 0 ? text : rest.append(text, from);
}

}  // namespace

std::optional<std::string> messageText(std::string_view text,
                                       std::span<const std::byte> attributedBody) {
  std::string plain = withoutAttachmentMarks(wellFormedUtf8(text));
  if (!plain.empty() || attributedBody.empty()) {
    return plain;
  }
  if (auto decoded = TypedStream::text(attributedBody)) {
    return withoutAttachmentMarks(*std::move(decoded));
  }
  // A plain column of marks alone has said it all.
  return text.empty() ? std::nullopt : std::optional(std::move(plain));
}

}  // namespace zephyl::linux_host
