#include "apps/common/ShellAddress.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <system_error>

#include "model/ZephylKeys.h"

namespace zephyl::app {

namespace {

namespace fs = std::filesystem;

constexpr char kService[] = "com.vantor.zephyls";
constexpr char kPath[] = "/com/vantor/zephyls";

// As far as the path exists, through all links.
std::string spelling(const fs::path& path) {
  std::error_code error;
  const fs::path found = fs::weakly_canonical(fs::absolute(path, error), error);
  std::string text = (error ? path : found).lexically_normal().string();
  while (text.size() > 1 && text.back() == '/') {
    text.pop_back();
  }
  return text;
}

bool isOfHome(const std::string& device) {
  const char* home = std::getenv("HOME");
  return home != nullptr && *home == '/' &&
         spelling(fs::path(home) / ".local/share/zephyls/device") == device;
}

// FNV-1a: the same on every machine and in every version.
std::string hashOf(std::string_view text) {
  std::uint64_t hash = 0xcbf29ce484222325;
  for (const char c : text) {
    hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
  }
  std::string digits;
  for (int shift = 60; shift >= 0; shift -= 4) {
    digits.push_back("0123456789abcdef"[(hash >> static_cast<unsigned>(shift)) & 0xFU]);
  }
  return digits;
}

}  // namespace

ShellAddress shellAddressOf(const fs::path& deviceRoot) {
  ShellAddress address;
  address.device = spelling(deviceRoot);
  const std::string number = isOfHome(address.device) ? "" : "d" + hashOf(address.device);
  address.center.center = kZephylsMessageCenter;
  address.center.service = kService + (number.empty() ? "" : "." + number);
  address.center.path = kPath + (number.empty() ? "" : "/" + number);
  address.notifications = address.center.path + "/notify";
  return address;
}

}  // namespace zephyl::app
