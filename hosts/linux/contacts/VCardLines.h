// Takes a vCard file apart into unfolded lines, one property each.
//
// Folding is a line break before a space or a tab. Quoted-printable values go on after a "=" at the
// end of a line, and base64 data of old writers goes on in unindented lines up to an empty one. The
// time taken grows with the text alone, whatever it holds; the memory with its longest line, of
// which no more than `mostBytes` are kept.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "hosts/linux/contacts/TextFile.h"

namespace zephyl::linux_host::vcard {

// How the value of a line is written.
enum class Transfer { kPlain, kQuotedPrintable, kBase64 };

struct Line {
  // That of its first part in the file, from 1, and the place in the file's text where that starts.
  std::size_t number = 0;
  std::uint64_t place = 0;
  std::string text;
  // Where the name and the parameters end; npos when there is no colon.
  std::size_t colon = std::string::npos;
  Transfer transfer = Transfer::kPlain;
  // Whether the line ended in a "=" that nothing followed.
  bool softBreakLeft = false;
  bool emptyLineAfter = false;
  // Whether it was longer than could be kept.
  bool isCut = false;
};

class Lines {
 public:
  static constexpr std::size_t kMostBytes = std::size_t{32} * 1024 * 1024;

  // The file must outlive the reader; its text is taken from where it stands, which `place` tells.
  explicit Lines(TextFile& file, std::size_t mostBytes = kMostBytes, std::uint64_t place = 0)
      : file_(file), mostBytes_(mostBytes), bufferPlace_(place) {}

  // The next line that is not empty; nullopt at the end.
  [[nodiscard]] std::optional<Line> next();

 private:
  // A line of the file. The text is valid until the next look into the file.
  struct Physical {
    std::string_view text;
    std::size_t next = 0;  // in the buffer
    bool isCut = false;
  };

  // Where one of the characters that end lines is looked for: nothing of it before `at`.
  struct Search {
    char character = 0;
    std::size_t at = 0;
  };

  bool readMore();
  [[nodiscard]] std::size_t find(Search& search) const;
  [[nodiscard]] bool atEnd();
  [[nodiscard]] std::size_t lineEnd();
  [[nodiscard]] Physical peek();
  void take(const Physical& physical);
  void append(std::string_view text);
  void scanHead();
  bool takeContinuation(const Physical& physical);
  void finishLine();

  TextFile& file_;
  std::size_t mostBytes_ = 0;
  std::string buffer_;
  std::uint64_t bufferPlace_ = 0;
  std::size_t at_ = 0;
  std::size_t number_ = 0;
  Search lineFeed_{'\n'};
  Search carriageReturn_{'\r'};

  // The line being put together, and how far its name and parameters have been looked through.
  Line line_;
  std::size_t scanned_ = 0;
  bool inQuotes_ = false;
};

}  // namespace zephyl::linux_host::vcard
