#include "hosts/linux/contacts/VCardPhoto.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <variant>

#include "hosts/linux/contacts/AsciiText.h"
#include "hosts/linux/contacts/VCardEncoding.h"
#include "hosts/linux/contacts/VCardLines.h"

namespace zephyl::linux_host::vcard {

namespace {

constexpr std::string_view kDataScheme = "data:";
constexpr std::string_view kBase64Mark = ";base64";

ABImageData load(const std::string& file, const FileState& state, std::uint64_t place) {
  auto opened = TextFile::open(file);
  auto* text = std::get_if<TextFile>(&opened);
  if (text == nullptr || text->state() != state || !text->skipTo(place)) {
    return nullptr;
  }
  Lines lines(*text);
  auto line = lines.next();
  const auto property = line ? Property::parse(std::move(*line)) : std::nullopt;
  auto bytes = property ? photoBytes(*property) : std::nullopt;
  return bytes ? std::make_shared<const std::vector<std::uint8_t>>(std::move(*bytes)) : nullptr;
}

}  // namespace

std::optional<std::string_view> base64Data(const Property& property) {
  const std::string_view value = ascii::trimmed(property.value);
  if (!ascii::startsWith(value, kDataScheme)) {
    return property.transfer == Transfer::kBase64 ? std::optional(value) : std::nullopt;
  }
  const std::size_t comma = std::min(value.find(','), value.size());
  std::string_view head = value.substr(0, comma);
  if (head.ends_with('\\')) {
    head.remove_suffix(1);
  }
  if (comma == value.size() || head.size() < kBase64Mark.size() ||
      !ascii::equal(head.substr(head.size() - kBase64Mark.size()), kBase64Mark)) {
    return std::nullopt;
  }
  return value.substr(comma + 1);
}

std::optional<std::vector<std::uint8_t>> photoBytes(const Property& property) {
  if (const auto data = base64Data(property)) {
    auto bytes = fromBase64(*data);
    return bytes && !bytes->empty() ? std::move(bytes) : std::nullopt;
  }
  const std::string_view value = ascii::trimmed(property.value);
  const std::size_t comma = value.find(',');
  if (!ascii::startsWith(value, kDataScheme) || comma == std::string_view::npos) {
    return std::nullopt;
  }
  const std::string bytes = fromPercentEncoding(value.substr(comma + 1));
  if (bytes.empty()) {
    return std::nullopt;
  }
  return std::vector<std::uint8_t>(bytes.begin(), bytes.end());
}

ABImageLoader photoLoader(const std::string& file, const FileState& state, std::uint64_t place) {
  return [file, state, place] { return load(file, state, place); };
}

}  // namespace zephyl::linux_host::vcard
