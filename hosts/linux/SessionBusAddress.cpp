#include "hosts/linux/SessionBusAddress.h"

#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace zephyl::linux_host {

namespace {

// A path as addresses spell it.
std::string escaped(std::string_view path) {
  constexpr std::string_view kHexDigits = "0123456789abcdef";
  constexpr std::string_view kPlain =
      "-_/.\\*0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
  std::string text;
  for (const char c : path) {
    if (kPlain.find(c) != std::string_view::npos) {
      text.push_back(c);
    } else {
      const auto byte = static_cast<unsigned char>(c);
      text.append({'%', kHexDigits[byte >> 4U], kHexDigits[byte & 0xFU]});
    }
  }
  return text;
}

}  // namespace

std::optional<std::string> sessionBusAddress() {
  const char* named = std::getenv("DBUS_SESSION_BUS_ADDRESS");
  if (named != nullptr && *named != '\0') {
    return std::string_view(named).starts_with("autolaunch:") ? std::nullopt
                                                              : std::optional<std::string>(named);
  }
  const char* runtimeFolder = std::getenv("XDG_RUNTIME_DIR");
  if (runtimeFolder == nullptr || *runtimeFolder != '/') {
    return std::nullopt;
  }
  const std::string socket = std::string(runtimeFolder) + "/bus";
  std::error_code error;
  if (!std::filesystem::exists(socket, error)) {
    return std::nullopt;
  }
  return "unix:path=" + escaped(socket);
}

}  // namespace zephyl::linux_host
