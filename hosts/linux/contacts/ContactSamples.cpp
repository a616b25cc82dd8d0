#include "hosts/linux/contacts/ContactSamples.h"

#include <gtest/gtest.h>

namespace zephyl::linux_host {

std::string card(std::string_view version, const std::vector<std::string>& lines) {
  std::string text = "BEGIN:VCARD\r\nVERSION:" + std::string(version) + "\r\n";
  for (const std::string& line : lines) {
    text += line + "\r\n";
  }
  return text + "END:VCARD\r\n";
}

VCardReading VCardTexts::read(std::string_view text, std::size_t mostBytesOfLine) const {
  writeFile(file(), text);
  return readVCards(file(), mostBytesOfLine);
}

ABPerson VCardTexts::person(std::string_view text) const {
  const VCardReading reading = read(text);
  EXPECT_EQ(reading.entries.size(), 1U);
  EXPECT_EQ(reading.notes.warnings(), std::vector<std::string>());
  EXPECT_EQ(reading.notes.errors(), std::vector<std::string>());
  return reading.entries.empty() ? ABPerson() : reading.entries.front().person;
}

std::vector<std::string> withoutFile(const std::vector<std::string>& notes,
                                     const std::string& file) {
  std::vector<std::string> texts;
  texts.reserve(notes.size());
  for (const std::string& note : notes) {
    texts.push_back(note.starts_with(file + ":") ? note.substr(file.size() + 1) : note);
  }
  return texts;
}

std::string picture(const ABImageLoader& loader) {
  const ABImageData data = loader ? loader() : nullptr;
  return data ? std::string(data->begin(), data->end()) : std::string();
}

const std::string_view kAddressBookTables = R"(
CREATE TABLE ABPerson (ROWID INTEGER PRIMARY KEY AUTOINCREMENT, First TEXT, Last TEXT, Middle TEXT,
  Organization TEXT, Kind INTEGER, Nickname TEXT, Prefix TEXT, Suffix TEXT, CreationDate INTEGER,
  ModificationDate INTEGER, CompositeNameFallback TEXT, StoreID INTEGER, PersonLink INTEGER
  DEFAULT -1, guid TEXT DEFAULT (ab_generate_guid()));
CREATE TABLE ABMultiValue (UID INTEGER PRIMARY KEY, record_id INTEGER, property INTEGER,
  identifier INTEGER, label INTEGER, value TEXT, guid TEXT DEFAULT (ab_generate_guid()));
CREATE TABLE ABMultiValueLabel (value TEXT);
CREATE TABLE ABMultiValueEntry (parent_id INTEGER, key INTEGER, value TEXT);
CREATE TABLE ABMultiValueEntryKey (value TEXT);
)";

const std::string_view kAddressBookImagesTables = R"(
CREATE TABLE ABThumbnailImage (ROWID INTEGER PRIMARY KEY, record_id INTEGER, format INTEGER,
  derived_from_format INTEGER, data BLOB);
CREATE TABLE ABFullSizeImage (ROWID INTEGER PRIMARY KEY, record_id INTEGER, crop_x INTEGER,
  crop_y INTEGER, crop_width INTEGER, data BLOB);
)";

}  // namespace zephyl::linux_host
