// What the labels of a person's values are called in the user's language.

#pragma once

#include <string>

#include "platform/Export.h"

namespace zephyl {

// "_$!<Mobile>!$_" is "mobile", localized; a label of the user's own stays as it is. A label of the
// system's that is not known is shown without its marks. Any thread.
[[nodiscard]] ZP_EXPORT std::string ABAddressBookCopyLocalizedLabel(const std::string& label);

}  // namespace zephyl
