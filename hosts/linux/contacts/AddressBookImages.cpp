#include "hosts/linux/contacts/AddressBookImages.h"

#include <system_error>
#include <utility>

#include "hosts/linux/contacts/AddressBookTables.h"
#include "hosts/linux/messages/Statement.h"

namespace zephyl::linux_host {

namespace {

constexpr const char* kThumbnails = "ABThumbnailImage";
constexpr const char* kFullSizes = "ABFullSizeImage";

std::unordered_set<std::int64_t> peopleIn(ReadOnlyDatabase& database, const std::string& table) {
  std::unordered_set<std::int64_t> people;
  Statement rows =
      database.prepare("SELECT DISTINCT record_id FROM " + table + " WHERE length(data) > 0");
  while (rows.next()) {
    people.insert(rows.integer(0).value_or(0));
  }
  return people;
}

}  // namespace

std::filesystem::path AddressBookImages::fileBeside(const std::filesystem::path& addressBook) {
  constexpr std::string_view kBook = "AddressBook";
  std::string name = addressBook.filename().string();
  const std::size_t at = name.rfind(kBook);
  if (at == std::string::npos) {
    return addressBook.parent_path() / "AddressBookImages.sqlitedb";
  }
  return addressBook.parent_path() / name.insert(at + kBook.size(), "Images");
}

std::shared_ptr<AddressBookImages> AddressBookImages::open(const std::filesystem::path& file,
                                                           ContactNotes& notes) {
  std::error_code error;
  if (!std::filesystem::exists(file, error)) {
    return nullptr;
  }
  auto opened = ReadOnlyDatabase::open(file);
  if (!opened.ok()) {
    notes.error(file.string(), 0, opened.error().reason);
    return nullptr;
  }
  std::shared_ptr<AddressBookImages> images(new AddressBookImages(file));
  images->database_ = std::move(opened).value();
  images->findPeople(notes);
  return images;
}

void AddressBookImages::findPeople(ContactNotes& notes) {
  const AddressBookTables tables(*database_, {kThumbnails, kFullSizes});
  const auto canRead = [&](const char* table) {
    return tables.has(table, "record_id") && tables.has(table, "data");
  };
  hasFormats_ = tables.has(kThumbnails, "format");
  if (canRead(kThumbnails)) {
    withThumbnail_ = peopleIn(*database_, kThumbnails);
  }
  if (canRead(kFullSizes)) {
    withFullSize_ = peopleIn(*database_, kFullSizes);
  }
  if (database_->error()) {
    notes.error(file_.string(), 0, database_->error()->reason);
  } else if (!canRead(kThumbnails) && !canRead(kFullSizes)) {
    notes.error(file_.string(), 0,
                "these are not the pictures of a phone's address book: there is neither a table "
                "ABThumbnailImage nor ABFullSizeImage");
  }
}

void AddressBookImages::addTo(ABPerson& person, std::int64_t rowID) {
  const auto loaderFrom = [&](const char* table) -> ABImageLoader {
    return [self = shared_from_this(), table, rowID] { return self->load(table, rowID); };
  };
  if (withThumbnail_.contains(rowID)) {
    person.thumbnailImage = loaderFrom(kThumbnails);
  }
  if (withFullSize_.contains(rowID)) {
    person.fullSizeImage = loaderFrom(kFullSizes);
  }
  if (!person.thumbnailImage) {
    person.thumbnailImage = person.fullSizeImage;
  }
  if (!person.fullSizeImage) {
    person.fullSizeImage = person.thumbnailImage;
  }
}

// A database that was changed, or could not be read, is opened afresh for the next picture.
ABImageData AddressBookImages::load(const std::string& table, std::int64_t rowID) {
  using Access = ReadOnlyDatabase::Access;
  const std::lock_guard lock(mutex_);
  for (const Access access :
       {Access::kInPlaceWhenSafe, Access::kInPlaceWhenSafe, Access::kPrivateCopy}) {
    if (!database_) {
      auto opened = ReadOnlyDatabase::open(file_, access);
      if (!opened.ok()) {
        return nullptr;
      }
      database_ = std::move(opened).value();
    }
    std::optional<std::vector<std::uint8_t>> bytes = read(table, rowID);
    const bool isStale = database_->sourceChanged();
    if (isStale || database_->error()) {
      database_.reset();
    }
    if (!isStale) {
      return bytes ? std::make_shared<const std::vector<std::uint8_t>>(std::move(*bytes)) : nullptr;
    }
  }
  return nullptr;
}

std::optional<std::vector<std::uint8_t>> AddressBookImages::read(const std::string& table,
                                                                 std::int64_t rowID) {
  const std::string order = table == kThumbnails && hasFormats_ ? " ORDER BY format" : "";
  Statement rows =
      database_->prepare("SELECT data FROM " + table +
                         " WHERE record_id = ?1 AND length(data) > 0" + order + " LIMIT 1");
  rows.bind(1, rowID);
  if (!rows.next()) {
    return std::nullopt;
  }
  const auto bytes = rows.blob(0);
  const auto* first = reinterpret_cast<const std::uint8_t*>(bytes.data());
  return std::vector<std::uint8_t>(first, first + bytes.size());
}

}  // namespace zephyl::linux_host
