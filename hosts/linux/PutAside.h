// Keeps the content of a damaged file beside it, as NAME.unreadable-YYYYMMDD-HHMMSS in the user's
// time zone (with -2, -3, ... when that is taken), for the user alone. Any thread.

#pragma once

#include <string>

#include "hosts/linux/FileContents.h"

namespace zephyl::linux_host {

struct KeptAside {
  std::string path;
  FileFailure failure;  // then nothing is kept
};

// `now` in seconds since 1970. No file is ever overwritten.
[[nodiscard]] KeptAside putAside(const std::string& realPath, const std::string& contents,
                                 double now);

}  // namespace zephyl::linux_host
