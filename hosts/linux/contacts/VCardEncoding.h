// The encodings that vCards come in: byte order marks, UTF-16, quoted-printable, base64 and
// character sets. Pure functions, any thread.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zephyl::linux_host::vcard {

// A result with the reason why it may not be what the writer meant; no reason when it is.
struct Decoded {
  std::string text;
  std::string doubt;
};

[[nodiscard]] bool isUtf8(std::string_view text);

// Puts UTF-16 behind `text` as UTF-8. Half a unit and surrogates without a partner become U+FFFD.
void appendUtf16(std::string& text, std::string_view bytes, bool bigEndian);

// An "=" that starts no two hexadecimal digits stays in the text and is doubted.
[[nodiscard]] Decoded fromQuotedPrintable(std::string_view text);

// White space is skipped and missing padding accepted; nullopt for any other foreign character, for
// data after the padding and for a length that no bytes encode to.
[[nodiscard]] std::optional<std::vector<std::uint8_t>> fromBase64(std::string_view text);

// Whether fromBase64() would give bytes, and at least one.
[[nodiscard]] bool isBase64(std::string_view text);

// Whether the text, which may be a part of such data, holds only digits, padding and white space,
// and something besides white space.
[[nodiscard]] bool looksLikeBase64(std::string_view text);

// UTF-8 from `charset`, a name in any case. Without a name, or with one that the bytes contradict:
// UTF-8 when the bytes are that; when only some are not, those become U+FFFD; else Windows-1252.
// Whatever had to be mended is doubted. Never returns invalid UTF-8.
[[nodiscard]] Decoded toUtf8(std::string bytes, std::string_view charset);

// "%41" becomes "A"; a "%" without two hexadecimal digits stays.
[[nodiscard]] std::string fromPercentEncoding(std::string_view text);

}  // namespace zephyl::linux_host::vcard
