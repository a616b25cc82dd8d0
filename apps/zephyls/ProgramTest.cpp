#include "apps/zephyls/ProgramTest.h"

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include <sqlite3.h>

#include "hosts/linux/testing/ChildProcess.h"

namespace zephyl::app::test {

namespace fs = std::filesystem;
using zephyl::test::contentOf;

namespace {

constexpr char kSchema[] = R"(
  CREATE TABLE handle (ROWID INTEGER PRIMARY KEY, id TEXT, service TEXT);
  CREATE TABLE chat (ROWID INTEGER PRIMARY KEY, guid TEXT UNIQUE, style INTEGER,
    chat_identifier TEXT, service_name TEXT, room_name TEXT, display_name TEXT,
    is_filtered INTEGER DEFAULT 0);
  CREATE TABLE message (ROWID INTEGER PRIMARY KEY, guid TEXT, text TEXT, attributedBody BLOB,
    handle_id INTEGER, date INTEGER, is_from_me INTEGER DEFAULT 0, is_read INTEGER DEFAULT 1,
    is_finished INTEGER DEFAULT 1, is_system_message INTEGER DEFAULT 0,
    item_type INTEGER DEFAULT 0, associated_message_type INTEGER DEFAULT 0);
  CREATE TABLE chat_handle_join (chat_id INTEGER, handle_id INTEGER);
  CREATE TABLE chat_message_join (chat_id INTEGER, message_id INTEGER, message_date INTEGER);
  INSERT INTO handle VALUES (1, '+15555550101', 'iMessage'), (2, '+15555550102', 'SMS'),
    (3, 'eve@example.com', 'iMessage');
  INSERT INTO chat (ROWID, guid, style, chat_identifier, service_name, display_name) VALUES
    (1, 'iMessage;-;+15555550101', 45, '+15555550101', 'iMessage', ''),
    (2, 'SMS;-;+15555550102', 45, '+15555550102', 'SMS', ''),
    (3, 'any;+;chat300', 43, 'chat300', 'iMessage', 'Picnic'),
    (4, 'iMessage;-;eve@example.com', 45, 'eve@example.com', 'iMessage', '');
  INSERT INTO chat_handle_join VALUES (1, 1), (2, 2), (3, 1), (3, 2), (4, 3);
  INSERT INTO message (ROWID, text, handle_id, date, is_read) VALUES
    (1, 'Hello', 1, 600000000000000000, 1), (2, 'Your code is 42', 2, 600000100000000000, 0),
    (3, 'Who brings cake?', 1, 600000200000000000, 0);
  INSERT INTO chat_message_join VALUES (1, 1, 600000000000000000), (2, 2, 600000100000000000),
    (3, 3, 600000200000000000);
)";

constexpr char kPeople[] =
    "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Larkspur;Ann;;;\r\nFN:Ann Larkspur\r\n"
    "TEL;TYPE=CELL:(555) 555-0101\r\nUID:ann\r\nEND:VCARD\r\n"
    "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Sjö;Eve;;;\r\nFN:Eve Sjö\r\nEMAIL:Eve@Example.com\r\n"
    "UID:eve\r\nEND:VCARD\r\n";

}  // namespace

std::vector<nlohmann::ordered_json> ProgramResult::objects() const {
  std::vector<nlohmann::ordered_json> parsed;
  std::istringstream lines(out);
  for (std::string line; std::getline(lines, line);) {
    parsed.push_back(nlohmann::ordered_json::parse(line, nullptr, /*allow_exceptions=*/false));
    EXPECT_TRUE(parsed.back().is_object()) << line;
  }
  return parsed;
}

ProgramTest::ProgramTest() {
  std::string name = (fs::temp_directory_path() / "zephyls-test-XXXXXX").string();
  folder_ = mkdtemp(name.data());
  messages_ = folder_ / "source/chat.db";
  contacts_ = folder_ / "source/people.vcf";
  device_ = folder_ / "device";
  groups_ = device_ / "var/mobile/Library/Preferences/com.vantor.zephyls-profiles.plist";
  settings_ = device_ / "var/mobile/Library/Preferences/com.vantor.zephyls.plist";
  environment_ = {{"HOME", folder_.string()},
                  {"TZ", "UTC"},
                  {"LANG", "C.UTF-8"},
                  {"DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent/bus"}};
}

ProgramTest::~ProgramTest() {
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

ProgramResult ProgramTest::run(const std::vector<std::string>& words,
                               const std::string& outputFile) const {
  std::vector<std::string> all = {ZEPHYLS_PROGRAM};
  all.insert(all.end(), words.begin(), words.end());
  zephyl::test::ChildOptions options;
  options.environment = environment_;
  options.inheritsEnvironment = false;
  options.inputFile = input_;
  options.outputFile = outputFile.empty() ? (folder_ / "stdout").string() : outputFile;
  options.errorFile = (folder_ / "stderr").string();
  constexpr auto kLongest = std::chrono::minutes(10);
  ProgramResult result;
  result.status = zephyl::test::ChildProcess(all, options).wait(kLongest).value_or(-1);
  result.out = outputFile.empty() ? contentOf(options.outputFile) : "";
  result.errors = contentOf(options.errorFile);
  return result;
}

ProgramResult ProgramTest::runOwn(std::vector<std::string> words) const {
  words.insert(words.begin(), {"--messages", messages_.string(), "--contacts", contacts_.string(),
                               "--device", device_.string()});
  return run(words);
}

const char* ProgramTest::ownSchema() {
  return kSchema;
}

void ProgramTest::writeOwnSources() const {
  execute(messages_, kSchema);
  write(contacts_, kPeople);
}

void ProgramTest::execute(const fs::path& database, const std::string& sql) const {
  fs::create_directories(database.parent_path());
  sqlite3* connection = nullptr;
  ASSERT_EQ(sqlite3_open(database.c_str(), &connection), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
      << sqlite3_errmsg(connection);
  sqlite3_close(connection);
}

void ProgramTest::write(const fs::path& file, const std::string& content) const {
  fs::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << content;
}

std::string ProgramTest::read(const fs::path& file) {
  return contentOf(file);
}

void ProgramTest::writeGroups(const std::string& dictionaries) const {
  write(groups_, "<plist version=\"1.0\"><array>" + dictionaries + "</array></plist>");
}

ProgramTest::Listing ProgramTest::listing(const fs::path& folder) {
  Listing files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    const auto time = fs::last_write_time(entry).time_since_epoch().count();
    files[entry.path().string()] =
        std::to_string(time) + (entry.is_regular_file() ? contentOf(entry.path()) : "");
  }
  return files;
}

}  // namespace zephyl::app::test
