#include "hosts/linux/DeviceRoot.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

namespace zephyl::linux_host {

namespace {

namespace fs = std::filesystem;

// What the program brings along stands below these.
constexpr std::array<std::string_view, 3> kSystemFolders = {"/System", "/Library", "/Applications"};

bool isAtOrBelow(std::string_view path, std::string_view folder) {
  return folder == "/" ||
         (path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/'));
}

bool belongsToSystem(std::string_view path) {
  for (const std::string_view folder : kSystemFolders) {
    if (isAtOrBelow(path, folder)) {
      return true;
    }
  }
  return false;
}

// "/a/b" without "//", "." and "..", and without a slash at the end; empty for the top.
DeviceLocation normalized(std::string_view path) {
  if (path.empty() || path.front() != '/') {
    return {{}, "not an absolute path"};
  }
  if (path.find('\0') != std::string_view::npos) {
    return {{}, "a NUL byte in the path"};
  }
  std::string result;
  for (std::size_t begin = 1; begin <= path.size();) {
    const std::size_t end = std::min(path.find('/', begin), path.size());
    const std::string_view part = path.substr(begin, end - begin);
    begin = end + 1;
    if (part == "..") {
      const std::size_t slash = result.rfind('/');
      result.resize(slash == std::string::npos ? 0 : slash);
    } else if (!part.empty() && part != ".") {
      result += '/';
      result += part;
    }
  }
  return {std::move(result), {}};
}

bool exists(const std::string& path) {
  std::error_code error;
  return fs::exists(path, error);
}

// Without a slash at the end: "" is the top of the file system, and what empty text stays.
std::string absolute(const std::string& folder) {
  std::error_code error;
  std::string path = fs::absolute(folder, error).lexically_normal().string();
  while (path.ends_with('/')) {
    path.pop_back();
  }
  return path;
}

// The longest part of the path that exists, its links resolved, and what follows as it stands.
std::string resolved(const std::string& path) {
  std::error_code error;
  const fs::path result = fs::weakly_canonical(path, error);
  return error ? path : result.string();
}

}  // namespace

DeviceRoot::DeviceRoot(const std::string& root, const std::string& overlay)
    : root_(absolute(root)), overlay_(absolute(overlay)) {}

DeviceLocation DeviceRoot::belowRoot(const std::string& normalPath) const {
  const std::string path = resolved(root_ + normalPath);
  if (!isAtOrBelow(path, resolved(root_.empty() ? "/" : root_))) {
    return {{}, "a symbolic link leads out of the device's folder"};
  }
  return {path, {}};
}

DeviceLocation DeviceRoot::forWriting(const std::string& path) const {
  DeviceLocation normal = normalized(path);
  return normal.refusal.empty() ? belowRoot(normal.path) : normal;
}

DeviceLocation DeviceRoot::forReading(const std::string& path) const {
  DeviceLocation normal = normalized(path);
  if (!normal.refusal.empty()) {
    return normal;
  }
  const bool hasOverlay = !overlay_.empty() && belongsToSystem(normal.path);
  if (hasOverlay && !exists(root_ + normal.path) && exists(overlay_ + normal.path)) {
    return {overlay_ + normal.path, {}};
  }
  return belowRoot(normal.path);
}

bool DeviceRoot::isLink(const std::string& path) const {
  const DeviceLocation normal = normalized(path);
  const std::size_t name = normal.path.rfind('/');
  if (name == std::string::npos) {
    return false;
  }
  const DeviceLocation folder = belowRoot(normal.path.substr(0, name));
  std::error_code error;
  return folder.refusal.empty() && fs::is_symlink(folder.path + normal.path.substr(name), error);
}

std::vector<std::string> DeviceRoot::foldersOf(const std::string& path) const {
  const DeviceLocation normal = normalized(path);
  std::vector<std::string> folders;
  if (!normal.refusal.empty()) {
    return folders;
  }
  if (DeviceLocation own = belowRoot(normal.path); own.refusal.empty()) {
    folders.push_back(std::move(own.path));
  }
  if (!overlay_.empty() && belongsToSystem(normal.path)) {
    folders.push_back(overlay_ + normal.path);
  }
  return folders;
}

}  // namespace zephyl::linux_host
