#include "apps/zephyls/ProgramTest.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

#include <fcntl.h>
#include <spawn.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zephyl::app::test {

namespace fs = std::filesystem;

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

std::string contentOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// Starts the program with its standard streams in files; gives its exit status.
int spawn(const std::vector<std::string>& words, const std::map<std::string, std::string>& settings,
          const std::string& in, const std::string& out, const std::string& errors) {
  std::vector<std::string> environment;
  environment.reserve(settings.size());
  for (const auto& [name, value] : settings) {
    environment.push_back(std::string(name).append("=").append(value));
  }
  const auto pointers = [](const std::vector<std::string>& texts) {
    std::vector<char*> result;
    result.reserve(texts.size() + 1);
    for (const std::string& text : texts) {
      result.push_back(const_cast<char*>(text.c_str()));
    }
    result.push_back(nullptr);
    return result;
  };
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_addopen(&files, STDIN_FILENO, in.c_str(), O_RDONLY | O_NOCTTY, 0);
  constexpr int kFlags = O_WRONLY | O_CREAT | O_TRUNC;
  posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, out.c_str(), kFlags, 0600);
  posix_spawn_file_actions_addopen(&files, STDERR_FILENO, errors.c_str(), kFlags, 0600);
  pid_t process = 0;
  const int failed = posix_spawn(&process, ZEPHYLS_PROGRAM, &files, nullptr, pointers(words).data(),
                                 pointers(environment).data());
  posix_spawn_file_actions_destroy(&files);
  int status = 0;
  if (failed != 0 || waitpid(process, &status, 0) != process) {
    return -1;
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
}

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
  std::vector<std::string> all = {"zephyls"};
  all.insert(all.end(), words.begin(), words.end());
  const std::string out = outputFile.empty() ? (folder_ / "stdout").string() : outputFile;
  const std::string errors = (folder_ / "stderr").string();
  ProgramResult result;
  result.status = spawn(all, environment_, input_, out, errors);
  result.out = outputFile.empty() ? contentOf(out) : "";
  result.errors = contentOf(errors);
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
