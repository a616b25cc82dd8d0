#include "hosts/linux/messages/TestDatabase.h"

#include <cstddef>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

#include <sqlite3.h>
#include <sys/stat.h>

namespace zephyl::linux_host {

TemporaryFolder::TemporaryFolder() {
  std::string name = std::filesystem::temp_directory_path() / "zephyls-test-XXXXXX";
  if (::mkdtemp(name.data()) == nullptr) {
    throw std::runtime_error("no temporary folder");
  }
  path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::map<std::string, TemporaryFolder::Entry> TemporaryFolder::contents() const {
  std::map<std::string, Entry> contents;
  for (const auto& entry : std::filesystem::directory_iterator(path_)) {
    struct stat status = {};
    ::stat(entry.path().c_str(), &status);
    contents[entry.path().filename()] = {
        S_ISREG(status.st_mode) ? readFile(entry.path()) : std::string(),
        status.st_mtim.tv_sec * 1'000'000'000 + status.st_mtim.tv_nsec};
  }
  return contents;
}

TemporaryFilesIn::TemporaryFilesIn(const std::string& folder) {
  ::setenv("TMPDIR", folder.c_str(), /*replace=*/1);
}

TemporaryFilesIn::~TemporaryFilesIn() {
  ::unsetenv("TMPDIR");
}

std::string readFile(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

void writeFile(const std::filesystem::path& file, std::string_view bytes) {
  std::ofstream stream(file, std::ios::binary | std::ios::trunc);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

TestDatabase::TestDatabase(const std::string& file, std::string_view sql) {
  if (sqlite3_open(file.c_str(), &handle_) != SQLITE_OK) {
    throw std::runtime_error("no test database");
  }
  sqlite3_db_config(handle_, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
  run("PRAGMA synchronous = OFF");
  run(sql);
}

TestDatabase::~TestDatabase() {
  sqlite3_close(handle_);
}

void TestDatabase::run(std::string_view sql) {
  if (sqlite3_exec(handle_, std::string(sql).c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(handle_));
  }
}

const std::string_view kOldSchema = R"(
CREATE TABLE _SqliteDatabaseProperties (key TEXT, value TEXT, UNIQUE(key));
INSERT INTO _SqliteDatabaseProperties VALUES ('_ClientVersion', '36');
CREATE TABLE handle (ROWID INTEGER PRIMARY KEY AUTOINCREMENT UNIQUE, id TEXT NOT NULL,
  country TEXT, service TEXT NOT NULL, uncanonicalized_id TEXT, UNIQUE (id, service));
CREATE TABLE chat (ROWID INTEGER PRIMARY KEY AUTOINCREMENT, guid TEXT UNIQUE NOT NULL,
  style INTEGER, state INTEGER, account_id TEXT, properties BLOB, chat_identifier TEXT,
  service_name TEXT, room_name TEXT, account_login TEXT, is_archived INTEGER DEFAULT 0);
CREATE TABLE message (ROWID INTEGER PRIMARY KEY AUTOINCREMENT, guid TEXT UNIQUE, text TEXT,
  attributedBody BLOB, handle_id INTEGER DEFAULT 0, service TEXT, date INTEGER,
  is_finished INTEGER DEFAULT 0, is_from_me INTEGER DEFAULT 0, is_read INTEGER DEFAULT 0,
  is_system_message INTEGER DEFAULT 0);
CREATE TABLE chat_handle_join (chat_id INTEGER, handle_id INTEGER, UNIQUE(chat_id, handle_id));
CREATE TABLE chat_message_join (chat_id INTEGER, message_id INTEGER,
  PRIMARY KEY (chat_id, message_id));
)";

const std::string_view kMiddleSchema = R"(
CREATE TABLE _SqliteDatabaseProperties (key TEXT, value TEXT, UNIQUE(key));
INSERT INTO _SqliteDatabaseProperties VALUES ('_ClientVersion', '12005');
CREATE TABLE handle (ROWID INTEGER PRIMARY KEY AUTOINCREMENT UNIQUE, id TEXT, country TEXT,
  service TEXT DEFAULT 'iMessage', uncanonicalized_id TEXT, person_centric_id TEXT);
CREATE TABLE chat (ROWID INTEGER PRIMARY KEY AUTOINCREMENT, guid TEXT, style INTEGER,
  state INTEGER, properties BLOB, chat_identifier TEXT, service_name TEXT, room_name TEXT,
  is_archived INTEGER DEFAULT 0, display_name TEXT, group_id TEXT, is_filtered INTEGER);
CREATE TABLE message (ROWID INTEGER PRIMARY KEY AUTOINCREMENT, guid TEXT UNIQUE, text TEXT,
  attributedBody BLOB, handle_id INTEGER DEFAULT 0, service TEXT, date INTEGER,
  date_read INTEGER, is_finished INTEGER DEFAULT 1, is_from_me INTEGER DEFAULT 0,
  is_read INTEGER DEFAULT 0, is_system_message INTEGER DEFAULT 0, item_type INTEGER DEFAULT 0,
  cache_has_attachments INTEGER DEFAULT 0, associated_message_type INTEGER DEFAULT 0);
CREATE TABLE chat_handle_join (chat_id INTEGER, handle_id INTEGER);
CREATE TABLE chat_message_join (chat_id INTEGER, message_id INTEGER,
  message_date INTEGER DEFAULT 0, PRIMARY KEY (chat_id, message_id));
CREATE INDEX chat_message_join_idx_message_id_only ON chat_message_join(message_id);
CREATE INDEX message_idx_isRead_isFromMe_itemType ON message(is_read, is_from_me, item_type);
CREATE TRIGGER after_delete_on_message AFTER DELETE ON message
  BEGIN SELECT delete_attachment_path('x'); END;
)";

const std::string_view kNewSchema = R"(
CREATE TABLE _SqliteDatabaseProperties (key TEXT, value TEXT, UNIQUE(key));
INSERT INTO _SqliteDatabaseProperties VALUES ('_ClientVersion', '18026');
CREATE TABLE handle (ROWID INTEGER PRIMARY KEY AUTOINCREMENT UNIQUE, id TEXT NOT NULL,
  country TEXT, service TEXT NOT NULL, uncanonicalized_id TEXT, person_centric_id TEXT,
  UNIQUE (id, service));
CREATE TABLE chat (ROWID INTEGER PRIMARY KEY AUTOINCREMENT, guid TEXT UNIQUE NOT NULL,
  style INTEGER, state INTEGER, properties BLOB, chat_identifier TEXT, service_name TEXT,
  room_name TEXT, is_archived INTEGER DEFAULT 0, display_name TEXT, group_id TEXT,
  is_filtered INTEGER DEFAULT 0, is_blackholed INTEGER DEFAULT 0, is_recovered INTEGER DEFAULT 0,
  is_pending_review INTEGER DEFAULT 0);
CREATE TABLE message (ROWID INTEGER PRIMARY KEY AUTOINCREMENT, guid TEXT UNIQUE, text TEXT,
  attributedBody BLOB, handle_id INTEGER DEFAULT 0, service TEXT, date INTEGER,
  date_read INTEGER, is_finished INTEGER DEFAULT 1, is_from_me INTEGER DEFAULT 0,
  is_read INTEGER DEFAULT 0, is_system_message INTEGER DEFAULT 0, item_type INTEGER DEFAULT 0,
  cache_has_attachments INTEGER DEFAULT 0, associated_message_type INTEGER DEFAULT 0,
  associated_message_emoji TEXT, date_edited INTEGER DEFAULT 0, date_retracted INTEGER DEFAULT 0);
CREATE TABLE chat_handle_join (chat_id INTEGER, handle_id INTEGER, UNIQUE(chat_id, handle_id));
CREATE TABLE chat_message_join (chat_id INTEGER, message_id INTEGER,
  message_date INTEGER DEFAULT 0, PRIMARY KEY (chat_id, message_id));
CREATE TABLE chat_recoverable_message_join (chat_id INTEGER, message_id INTEGER,
  delete_date INTEGER, PRIMARY KEY (chat_id, message_id));
CREATE INDEX chat_message_join_idx_message_date_id_chat_id
  ON chat_message_join(chat_id, message_date, message_id);
CREATE INDEX message_idx_is_read ON message(is_read, is_from_me, is_finished)
  WHERE is_read = 0 AND is_finished = 1 AND is_from_me = 0 AND item_type = 0;
)";

std::string blobLiteral(std::string_view bytes) {
  constexpr std::string_view kHex = "0123456789abcdef";
  std::string literal = "x'";
  for (const char character : bytes) {
    const auto byte = static_cast<unsigned char>(character);
    literal += kHex[byte >> 4];
    literal += kHex[byte & 15];
  }
  return literal + "'";
}

std::string archivedText(std::string_view text) {
  using std::string_literals::operator""s;
  const auto size = static_cast<std::uint16_t>(text.size());
  std::string length(1, static_cast<char>(size));
  if (size >= 0x80) {
    length = "\x81"s + static_cast<char>(size & 0xFF) + static_cast<char>(size >> 8);
  }
  return "\x04\x0bstreamtyped\x81\xe8\x03\x84\x01@\x84\x84\x84\x12NSAttributedString\x00"s
         "\x84\x84\x08NSObject\x00\x85\x92\x84\x84\x84\x08NSString\x01\x94\x84\x01+"s +
         length + std::string(text) + "\x86\x84\x02iI\x01"s + length +
         "\x92\x84\x84\x84\x0cNSDictionary\x00\x94\x84\x01i\x00\x86\x86"s;
}

}  // namespace zephyl::linux_host
