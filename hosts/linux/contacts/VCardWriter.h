// Writes people as vCards of version 3.0, so that readVCards() reads what was written. Any thread.

#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/addressbook/ABPerson.h"

namespace zephyl::linux_host {

// Names, organization, phones and e-mail addresses with the labels that vCards have, and the guid;
// invalid UTF-8 mended. Lines of no more than 75 bytes, as the format wants it.
[[nodiscard]] std::string vCardText(const ABPerson& person);

// Puts the person behind those in the file, which is made when there is none, for the user alone;
// the folder it lies in must be there. "FILE: REASON" when that fails, and then all is as it was.
[[nodiscard]] std::optional<std::string> appendVCard(const std::filesystem::path& file,
                                                     const ABPerson& person);

// 32 random hexadecimal digits in the form of a UUID.
[[nodiscard]] std::string newGuid();

}  // namespace zephyl::linux_host
