// Where the phone's absolute paths lie on this machine: below one folder of the user's, and for
// what belongs to the system also in a read-only overlay of the program's own. Any thread.

#pragma once

#include <string>
#include <vector>

namespace zephyl::linux_host {

// A place on this machine, or why a path has none. Exactly one of the two is empty.
struct DeviceLocation {
  std::string path;
  std::string refusal;
};

class DeviceRoot {
 public:
  // Neither folder needs to exist. An empty `overlay` is none.
  DeviceRoot(const std::string& root, const std::string& overlay);

  // Every path is taken as the phone takes it ("//", "." and ".." included, ".." at the top stays
  // there). Refused are paths that are not absolute, that hold a NUL byte, or that a symbolic link
  // below the root leads out of it. The root itself may be reached through a link.

  // Where a file or folder that may exist lies: below the root when something is there, else in the
  // overlay when something is there, else below the root.
  [[nodiscard]] DeviceLocation forReading(const std::string& path) const;

  // Never in the overlay. When something is there its links are resolved, so that a writer need not
  // follow any.
  [[nodiscard]] DeviceLocation forWriting(const std::string& path) const;

  // Whether what lies there below the root is itself a symbolic link, one that leads out of it
  // included. Refused paths are none.
  [[nodiscard]] bool isLink(const std::string& path) const;

  // The folders that together make up the folder of that path, the root's first. Refused paths have
  // none. They need not exist.
  [[nodiscard]] std::vector<std::string> foldersOf(const std::string& path) const;

 private:
  [[nodiscard]] DeviceLocation belowRoot(const std::string& normalPath) const;

  std::string root_;
  std::string overlay_;
};

}  // namespace zephyl::linux_host
