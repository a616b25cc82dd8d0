#include "hosts/linux/contacts/ContactStamps.h"

#include <sys/stat.h>

#include "hosts/linux/contacts/AddressBookImages.h"
#include "hosts/linux/contacts/ContactFiles.h"
#include "hosts/linux/contacts/ContactNotes.h"

namespace zephyl::linux_host {

namespace {

std::int64_t nanoseconds(const timespec& time) {
  constexpr std::int64_t kOfASecond = 1'000'000'000;
  return time.tv_sec * kOfASecond + time.tv_nsec;
}

ContactStamp stampOf(const std::string& path) {
  ContactStamp stamp{.path = path};
  struct stat status {};
  if (::stat(path.c_str(), &status) == 0) {
    stamp.device = status.st_dev;
    stamp.node = status.st_ino;
    stamp.size = status.st_size;
    stamp.modified = nanoseconds(status.st_mtim);
    stamp.changed = nanoseconds(status.st_ctim);
  }
  return stamp;
}

}  // namespace

ContactStamps contactStamps(const std::vector<std::string>& sources,
                            const std::filesystem::path& recordIDs) {
  // The reading tells what is wrong with them.
  ContactNotes notes;
  ContactStamps stamps{stampOf(recordIDs.string())};
  const auto addDatabase = [&](const std::string& path) {
    stamps.push_back(stampOf(path));
    stamps.push_back(stampOf(path + "-wal"));
  };
  for (const ContactFile& file : contactFiles(sources, notes)) {
    if (file.kind == ContactFile::Kind::kAddressBook) {
      addDatabase(file.path.string());
      addDatabase(AddressBookImages::fileBeside(file.path).string());
    } else {
      stamps.push_back(stampOf(file.path.string()));
    }
  }
  return stamps;
}

}  // namespace zephyl::linux_host
