// What a write in place is about to do, noted on the disk before its first byte, so that whoever
// comes after a process that ended in the middle can tell and mend it. Pure functions.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zephyl::linux_host {

// The journal's file, in the folder of the notes.
inline constexpr char kJournalName[] = "writing";

// Tells contents apart without keeping them.
struct ContentMark {
  std::uint64_t size = 0;
  std::string sha256;  // 64 hexadecimal digits

  [[nodiscard]] static ContentMark of(std::string_view contents);
  friend bool operator==(const ContentMark&, const ContentMark&) = default;
};

struct WriteJournal {
  std::optional<ContentMark> before;  // nothing when there was no file
  std::string copy;                   // the file of the safety copy that holds it; empty: none
  std::string after;                  // the whole new content
};

// A few lines of text, and then the new content.
[[nodiscard]] std::string textOf(const WriteJournal& journal);

// Nothing for any text that is not the whole of a journal.
[[nodiscard]] std::optional<WriteJournal> readJournal(std::string_view text);

}  // namespace zephyl::linux_host
