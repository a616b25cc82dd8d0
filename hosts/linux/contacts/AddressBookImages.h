// The pictures of a phone's address book, which lie in a database of their own and stay there until
// they are wanted. Any thread.

#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "platform/addressbook/ABPerson.h"

#include "hosts/linux/contacts/ContactNotes.h"
#include "hosts/linux/messages/ReadOnlyDatabase.h"

namespace zephyl::linux_host {

class AddressBookImages : public std::enable_shared_from_this<AddressBookImages> {
 public:
  // "AddressBookImages.sqlitedb" for "AddressBook.sqlitedb", in the same folder.
  [[nodiscard]] static std::filesystem::path fileBeside(const std::filesystem::path& addressBook);

  // Only notes who has a picture. Null when there is no such file or, with an error, when it cannot
  // be read.
  [[nodiscard]] static std::shared_ptr<AddressBookImages> open(const std::filesystem::path& file,
                                                               ContactNotes& notes);

  // Gives the person with that row id the loaders of the pictures that are there.
  void addTo(ABPerson& person, std::int64_t rowID);

 private:
  explicit AddressBookImages(std::filesystem::path file) : file_(std::move(file)) {}

  void findPeople(ContactNotes& notes);
  [[nodiscard]] ABImageData load(const std::string& table, std::int64_t rowID);
  [[nodiscard]] std::optional<std::vector<std::uint8_t>> read(const std::string& table,
                                                              std::int64_t rowID);

  std::filesystem::path file_;
  std::unordered_set<std::int64_t> withThumbnail_;
  std::unordered_set<std::int64_t> withFullSize_;
  bool hasFormats_ = false;

  std::mutex mutex_;
  std::optional<ReadOnlyDatabase> database_;
};

}  // namespace zephyl::linux_host
