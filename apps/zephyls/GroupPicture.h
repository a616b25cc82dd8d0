// The pictures of groups: checked before anything changes, and stored as the release does it.

#pragma once

#include <string>

#include "platform/foundation/Value.h"

#include "model/Zephyl.h"

namespace zephyl::app {

// The PNG that is stored for a picture. Throws CommandError, which names `place`, for what is none.
[[nodiscard]] std::string checkedPicture(const Data& bytes, const std::string& place);

// The same of a file.
[[nodiscard]] std::string checkedPictureFile(const std::string& file);

// Writes the PNG under the group's name and sets the name in the record, which is not saved. Throws
// CommandError when it could not be written; the record is then as it was.
void storePicture(const ZephylRef& group, const std::string& png);

}  // namespace zephyl::app
