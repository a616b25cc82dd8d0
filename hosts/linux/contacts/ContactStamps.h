// Tells whether contacts have changed since they were read, without reading them. Any thread.

#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace zephyl::linux_host {

// What a file looks like from outside. All zero for one that is not there.
struct ContactStamp {
  std::string path;
  std::uint64_t device = 0;
  std::uint64_t node = 0;
  std::int64_t size = 0;
  std::int64_t modified = 0;  // in nanoseconds, as the next
  std::int64_t changed = 0;

  bool operator==(const ContactStamp&) const = default;
};

using ContactStamps = std::vector<ContactStamp>;

// Of every file that readContacts() reads for these sources, with the pictures and the logs of
// address books, and of the file of record ids. To be taken before the reading, so that a change
// meanwhile is noticed.
[[nodiscard]] ContactStamps contactStamps(const std::vector<std::string>& sources,
                                          const std::filesystem::path& recordIDs);

}  // namespace zephyl::linux_host
