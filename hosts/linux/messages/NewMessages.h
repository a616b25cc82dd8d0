// The messages that have come into a Messages database since it was last looked at, for telling the
// user of them. What is read of the file is little, however large it is: it is never copied, and
// the log is read where it lies.
//
// Belongs to one thread at a time.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "hosts/linux/messages/DatabaseResult.h"
#include "hosts/linux/messages/MessagesDatabase.h"
#include "hosts/linux/messages/SourceFiles.h"

namespace zephyl::linux_host {

// Texts are well-formed UTF-8.
struct NewMessage {
  std::int64_t rowID = 0;
  std::string chatGuid;             // canonical, see canonicalChatGuid()
  std::string sender;               // raw address; empty when the file has none
  std::optional<std::string> text;  // as ConversationRecord::lastText; see kMostTexts
  std::optional<double> date;       // seconds since 1970

  bool operator==(const NewMessage&) const = default;
};

class NewMessages {
 public:
  // When more than these came at once, none has a text: nobody reads so many.
  static constexpr std::size_t kMostTexts = 20;

  struct Reading {
    // In the order of their rows. Not from the owner, not read yet, no event, no reaction, not in a
    // conversation of junk.
    std::vector<NewMessage> messages;
    // Another program wrote meanwhile. Nothing was taken note of: ask again soon.
    bool sourceChanged = false;
  };

  explicit NewMessages(std::string file) : file_(std::move(file)) {}

  // The first reading that succeeds finds nothing new: it only takes note of where the file ends.
  // So does one that finds another database in the place of the old. That is told by the message
  // last seen, so a file that was replaced by a later copy of itself goes on. A message that is not
  // finished, or in no conversation yet, is told of when it is.
  //
  // After an error all is as before.
  [[nodiscard]] DatabaseResult<Reading> read();

 private:
  // How far the file was read.
  struct Position {
    std::int64_t rowID = 0;
    std::string messageGuid;  // of that row; empty when unknown
    FileStamp file;
    std::vector<std::int64_t> unfinished;  // rows up to there that are still to be told of
  };

  // A message while it is being read.
  struct Candidate {
    NewMessage message;
    bool isFinished = false;
    std::optional<std::int64_t> handle;
    std::optional<std::int64_t> chat;
  };

  [[nodiscard]] bool continuesIn(MessagesDatabase& database, const Position& found) const;
  [[nodiscard]] std::vector<NewMessage> readFrom(MessagesDatabase& database, Position& found) const;
  [[nodiscard]] static Position endOf(MessagesDatabase& database, const FileStamp& file);
  [[nodiscard]] std::vector<Candidate> readCandidates(MessagesDatabase& database) const;
  static void readChats(MessagesDatabase& database, std::vector<Candidate>& candidates);
  static void readSenders(MessagesDatabase& database, std::vector<Candidate>& candidates);
  static void readTexts(MessagesDatabase& database, std::vector<NewMessage>& messages);

  const std::string file_;
  std::optional<Position> last_;
};

}  // namespace zephyl::linux_host
