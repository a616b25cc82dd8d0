#include "hosts/linux/LinuxProcessInfo.h"

#include <cassert>

namespace zephyl::linux_host {

LinuxProcessInfo::LinuxProcessInfo(std::string bundleIdentifier, std::vector<std::string> languages)
    : bundleIdentifier_(std::move(bundleIdentifier)), languages_(std::move(languages)) {
  assert(!languages_.empty());
}

std::string LinuxProcessInfo::bundlePath() {
  if (bundleIdentifier_ == "com.apple.springboard") {
    return "/System/Library/CoreServices/SpringBoard.app";
  }
  const std::size_t dot = bundleIdentifier_.rfind('.');
  return "/Applications/" + bundleIdentifier_.substr(dot == std::string::npos ? 0 : dot + 1) +
         ".app";
}

}  // namespace zephyl::linux_host
