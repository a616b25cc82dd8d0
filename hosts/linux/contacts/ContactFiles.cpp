#include "hosts/linux/contacts/ContactFiles.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <string_view>
#include <system_error>

#include "hosts/linux/contacts/AsciiText.h"

namespace zephyl::linux_host {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kAddressBookName = ".sqlitedb";

bool hasName(const fs::path& file, std::string_view extension) {
  return ascii::equal(file.extension().string(), extension);
}

bool isImages(const fs::path& file) {
  return file.filename().string().find("AddressBookImages") != std::string::npos;
}

bool isDatabase(const fs::path& file) {
  constexpr std::string_view kMagic("SQLite format 3\0", 16);
  std::array<char, 16> start{};
  std::error_code error;
  if (!fs::is_regular_file(file, error)) {
    return false;
  }
  std::ifstream stream(file, std::ios::binary);
  stream.read(start.data(), start.size());
  return stream && std::string_view(start.data(), start.size()) == kMagic;
}

ContactFile contactFile(const fs::path& file) {
  const bool isBook = hasName(file, kAddressBookName) || isDatabase(file);
  return {file, isBook ? ContactFile::Kind::kAddressBook : ContactFile::Kind::kVCards};
}

// Walks through a folder and those inside it, one after the other.
class FolderSearch {
 public:
  explicit FolderSearch(ContactNotes& notes) : notes_(notes) {}

  std::vector<fs::path> filesIn(const fs::path& folder) {
    folders_.push_back(folder);
    while (!folders_.empty()) {
      const fs::path next = folders_.back();
      folders_.pop_back();
      search(next);
    }
    std::sort(files_.begin(), files_.end());
    return std::move(files_);
  }

 private:
  void search(const fs::path& folder) {
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    while (!error && entry != fs::directory_iterator()) {
      look(*entry);
      entry.increment(error);
    }
    if (error) {
      notes_.error(folder.string(), 0, "the folder cannot be looked into: " + error.message());
    }
  }

  void look(const fs::directory_entry& entry) {
    std::error_code error;
    const fs::path& path = entry.path();
    const bool isLink = entry.is_symlink(error);
    if (entry.is_directory(error)) {
      if (isLink) {
        notes_.warning(path.string(), 0, "the link to a folder is not followed");
      } else {
        folders_.push_back(path);
      }
    } else if (hasName(path, ".vcf") || hasName(path, ".vcard") ||
               (hasName(path, kAddressBookName) && !isImages(path))) {
      files_.push_back(path);
    }
  }

  ContactNotes& notes_;
  std::vector<fs::path> folders_;
  std::vector<fs::path> files_;
};

}  // namespace

std::vector<ContactFile> contactFiles(const std::vector<std::string>& sources,
                                      ContactNotes& notes) {
  std::vector<ContactFile> files;
  for (const std::string& source : sources) {
    std::error_code error;
    const fs::file_status status = fs::status(source, error);
    if (status.type() == fs::file_type::not_found) {
      notes.error(source, 0, "there is no such file or folder");
    } else if (!fs::is_directory(status)) {
      files.push_back(contactFile(source));
    } else {
      const std::vector<fs::path> found = FolderSearch(notes).filesIn(source);
      if (found.empty()) {
        notes.warning(source, 0, "there are no contacts in this folder");
      }
      for (const fs::path& file : found) {
        files.push_back(contactFile(file));
      }
    }
  }
  return files;
}

}  // namespace zephyl::linux_host
