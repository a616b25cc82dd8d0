// The pictures of vCards. They stay in their files until they are wanted.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/addressbook/ABPerson.h"

#include "hosts/linux/contacts/TextFile.h"
#include "hosts/linux/contacts/VCardProperty.h"

namespace zephyl::linux_host::vcard {

// The base64 data of a property, be it encoded as a whole or a "data:" address; nullopt for
// another.
[[nodiscard]] std::optional<std::string_view> base64Data(const Property& property);

// The picture that is written in the property itself; nullopt when there is none or it is broken.
[[nodiscard]] std::optional<std::vector<std::uint8_t>> photoBytes(const Property& property);

// Reads the property that starts at `place` of the file's text. No picture once the file has
// changed.
[[nodiscard]] ABImageLoader photoLoader(const std::string& file, const FileState& state,
                                        std::uint64_t place);

}  // namespace zephyl::linux_host::vcard
