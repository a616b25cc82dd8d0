// The text of a file in UTF-8, a piece at a time, so that files of any size are read in little
// memory. Byte order marks are left out and UTF-16 (told by its mark, or by the zero bytes of its
// first letters) becomes UTF-8; every other encoding is passed on as it is.
//
// Belongs to one thread.

#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <variant>

namespace zephyl::linux_host {

// By which a change of a file is noticed.
struct FileState {
  std::uintmax_t size = 0;
  std::filesystem::file_time_type time;

  // nullopt unless it is a regular file.
  [[nodiscard]] static std::optional<FileState> of(const std::filesystem::path& file);
  friend bool operator==(const FileState&, const FileState&) = default;
};

class TextFile {
 public:
  // The reason when it cannot be read.
  [[nodiscard]] static std::variant<TextFile, std::string> open(const std::filesystem::path& file);

  // Puts the next piece behind `text`; false when nothing is left or reading fails.
  bool readMore(std::string& text);

  // Moves on to a place in the text, counted in its UTF-8 bytes from the start; false when the text
  // is not that long. Only before the first readMore().
  bool skipTo(std::uint64_t place);

  // Why reading ended before the end of the file.
  [[nodiscard]] const std::optional<std::string>& error() const { return error_; }

  // Characters of such files that stand for nothing have become U+FFFD.
  [[nodiscard]] bool isUtf16() const { return encoding_ != Encoding::kBytes; }
  [[nodiscard]] const FileState& state() const { return state_; }

 private:
  enum class Encoding { kBytes, kUtf16Little, kUtf16Big };

  void findEncoding();
  void fill();
  void takeUtf16(std::string& text);

  std::ifstream stream_;
  FileState state_;
  Encoding encoding_ = Encoding::kBytes;
  std::uint64_t textStart_ = 0;
  // Bytes that were read and not handed out yet.
  std::string pending_;
  // Text that skipTo() had to convert.
  std::string ahead_;
  std::optional<std::string> error_;
};

}  // namespace zephyl::linux_host
