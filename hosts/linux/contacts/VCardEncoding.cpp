#include "hosts/linux/contacts/VCardEncoding.h"

#include <algorithm>
#include <array>
#include <limits>
#include <memory>
#include <utility>

#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>
#include <unicode/unistr.h>

#include "platform/foundation/Utf8.h"

#include "hosts/linux/contacts/AsciiText.h"

namespace zephyl::linux_host::vcard {

namespace {

int hexDigit(char c) {
  if (c >= '0' && c <= '9') {
    return c - '0';
  }
  const char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// The byte that two hexadecimal digits at `at` spell, or -1.
int hexByte(std::string_view text, std::size_t at) {
  if (at + 2 > text.size()) {
    return -1;
  }
  const int high = hexDigit(text[at]);
  const int low = hexDigit(text[at + 1]);
  return high < 0 || low < 0 ? -1 : high * 16 + low;
}

// Base64 digits have their value, white space and everything else a negative one.
constexpr int kSpace = -1;
constexpr int kForeign = -2;

constexpr std::array<int, 256> base64Values() {
  std::array<int, 256> values{};
  for (int& value : values) {
    value = kForeign;
  }
  constexpr std::string_view kDigits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  for (std::size_t i = 0; i < kDigits.size(); ++i) {
    values[static_cast<unsigned char>(kDigits[i])] = static_cast<int>(i);
  }
  for (const char c : std::string_view(" \t\r\n")) {
    values[static_cast<unsigned char>(c)] = kSpace;
  }
  return values;
}

constexpr std::array<int, 256> kBase64Values = base64Values();

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

// Gives `take` each byte; false when the text is no proper base64.
template <class Take>
bool decodeBase64(std::string_view text, Take take) {
  std::uint32_t bits = 0;
  std::size_t digits = 0;
  std::size_t padding = 0;
  for (const char c : text) {
    const int value = kBase64Values[static_cast<unsigned char>(c)];
    if (value == kSpace) {
      continue;
    }
    if (c == '=') {
      ++padding;
      continue;
    }
    if (value == kForeign || padding != 0) {
      return false;
    }
    bits = (bits << 6) | static_cast<std::uint32_t>(value);
    if (++digits % 4 == 0) {
      take(static_cast<std::uint8_t>(bits >> 16));
      take(static_cast<std::uint8_t>(bits >> 8));
      take(static_cast<std::uint8_t>(bits));
    }
  }
  const std::size_t left = digits % 4;
  bits <<= 6 * (4 - left);
  if (left >= 2) {
    take(static_cast<std::uint8_t>(bits >> 16));
  }
  if (left == 3) {
    take(static_cast<std::uint8_t>(bits >> 8));
  }
  return left != 1 && padding <= 2;
}

struct CloseConverter {
  void operator()(UConverter* converter) const { ucnv_close(converter); }
};

// Puts U+FFFD for what is not in a character set, and notes it in the `bool` of the context.
void replaceBroken(const void* context, UConverterToUnicodeArgs* arguments, const char* /*bytes*/,
                   std::int32_t /*length*/, UConverterCallbackReason reason, UErrorCode* status) {
  if (reason > UCNV_IRREGULAR) {
    return;
  }
  constexpr char16_t kReplacementUnit = 0xFFFD;
  *static_cast<bool*>(const_cast<void*>(context)) = true;
  *status = U_ZERO_ERROR;
  ucnv_cbToUWriteUChars(arguments, &kReplacementUnit, 1, 0, status);
}

struct Converted {
  std::string text;
  bool wasBroken = false;
};

// nullopt when the character set is not known.
std::optional<Converted> convert(std::string_view bytes, const std::string& charset) {
  if (bytes.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
    return std::nullopt;
  }
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<UConverter, CloseConverter> converter(ucnv_open(charset.c_str(), &status));
  if (U_FAILURE(status)) {
    return std::nullopt;
  }
  Converted result;
  ucnv_setToUCallBack(converter.get(), &replaceBroken, &result.wasBroken, nullptr, nullptr,
                      &status);
  const icu::UnicodeString unicode(bytes.data(), static_cast<std::int32_t>(bytes.size()),
                                   converter.get(), status);
  if (U_FAILURE(status)) {
    return std::nullopt;
  }
  unicode.toUTF8String(result.text);
  return result;
}

// Text that was UTF-8 once has some such characters left; else it is the one-byte set that most
// old writers used.
Decoded mended(std::string_view bytes, const std::string& doubt) {
  std::string text;
  bool hasLong = false;
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t length = utf8CharacterAt(bytes, at).length;
    text += length == 0 ? kReplacement : bytes.substr(at, length);
    hasLong = hasLong || length > 1;
    at += std::max<std::size_t>(length, 1);
  }
  if (hasLong) {
    return {std::move(text), doubt + "; the broken bytes are replaced"};
  }
  auto converted = convert(bytes, "windows-1252");
  return {converted ? std::move(converted->text) : std::move(text),
          doubt + "; read as Windows-1252"};
}

}  // namespace

bool isUtf8(std::string_view text) {
  return findInvalidUtf8(text) == std::string_view::npos;
}

void appendUtf16(std::string& text, std::string_view bytes, bool bigEndian) {
  const auto unit = [&](std::size_t at) {
    const auto first = static_cast<unsigned char>(bytes[at]);
    const auto second = static_cast<unsigned char>(bytes[at + 1]);
    return static_cast<char32_t>(bigEndian ? first * 256 + second : second * 256 + first);
  };
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    char32_t c = unit(at);
    if (c >= 0xD800 && c < 0xDC00 && at + 3 < bytes.size()) {
      const char32_t low = unit(at + 2);
      if (low >= 0xDC00 && low < 0xE000) {
        c = 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
        at += 2;
      }
    }
    appendUtf8(text, c >= 0xD800 && c < 0xE000 ? 0xFFFD : c);
  }
  if (bytes.size() % 2 != 0) {
    text += kReplacement;
  }
}

Decoded fromQuotedPrintable(std::string_view text) {
  Decoded result;
  result.text.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    const int byte = text[at] == '=' ? hexByte(text, at + 1) : -1;
    if (byte >= 0) {
      result.text += static_cast<char>(byte);
      at += 2;
      continue;
    }
    if (text[at] == '=') {
      result.doubt = "is not proper quoted-printable text";
    }
    result.text += text[at];
  }
  return result;
}

std::optional<std::vector<std::uint8_t>> fromBase64(std::string_view text) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(text.size() / 4 * 3 + 3);
  const bool ok = decodeBase64(text, [&](std::uint8_t byte) { bytes.push_back(byte); });
  return ok ? std::optional(std::move(bytes)) : std::nullopt;
}

bool isBase64(std::string_view text) {
  bool any = false;
  return decodeBase64(text, [&](std::uint8_t) { any = true; }) && any;
}

bool looksLikeBase64(std::string_view text) {
  bool any = false;
  for (const char c : text) {
    const int value = kBase64Values[static_cast<unsigned char>(c)];
    if (value == kForeign && c != '=') {
      return false;
    }
    any = any || value != kSpace;
  }
  return any;
}

Decoded toUtf8(std::string bytes, std::string_view charset) {
  const std::string name = ascii::upper(charset);
  const bool unicode = name.empty() || name == "UTF-8" || name == "UTF8" || name == "US-ASCII";
  if (unicode) {
    return isUtf8(bytes) ? Decoded{std::move(bytes), {}} : mended(bytes, "is not UTF-8");
  }
  // What most writers call Latin-1 is its superset, as on the web.
  const bool latin = name == "ISO-8859-1" || name == "LATIN1" || name == "ISO8859-1";
  if (auto converted = convert(bytes, latin ? "windows-1252" : name)) {
    return {std::move(converted->text),
            converted->wasBroken ? "has bytes that are not " + name + "; they are replaced" : ""};
  }
  const std::string doubt = "has the unknown character set " + std::string(charset);
  return isUtf8(bytes) ? Decoded{std::move(bytes), doubt + "; read as UTF-8"}
                       : mended(bytes, doubt);
}

std::string fromPercentEncoding(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    const int byte = text[at] == '%' ? hexByte(text, at + 1) : -1;
    result += byte >= 0 ? static_cast<char>(byte) : text[at];
    at += byte >= 0 ? 2 : 0;
  }
  return result;
}

}  // namespace zephyl::linux_host::vcard
