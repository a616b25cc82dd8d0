// The address book's labels for the types of vCard values.

#pragma once

#include <string>

#include "hosts/linux/contacts/VCardProperty.h"

namespace zephyl::linux_host::vcard {

// Raw labels as the address book keeps them ("_$!<Mobile>!$_"); empty when the types name none.
[[nodiscard]] std::string phoneLabel(const Property& property);
[[nodiscard]] std::string emailLabel(const Property& property);

}  // namespace zephyl::linux_host::vcard
