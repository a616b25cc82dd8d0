#include "hosts/linux/safety/SaveNotes.h"

#include <filesystem>
#include <string_view>
#include <system_error>
#include <vector>

namespace zephyl::linux_host {

namespace {

namespace fs = std::filesystem;

constexpr char kAnnouncement[] = "announced";

bool isThere(const std::string& path) {
  std::error_code error;
  return fs::exists(path, error);
}

std::optional<WriteJournal> journalIn(const std::string& path) {
  const FileReading reading = readWholeFile(path);
  return reading.contents ? readJournal(*reading.contents) : std::nullopt;
}

// A journal that was to be renamed once it was whole. Not an announcement, which somebody else
// makes at any time.
bool isHalfDone(std::string_view file) {
  constexpr std::string_view kBeginning = "writing.";
  return file.starts_with(kBeginning) && file.size() == kBeginning.size() + 6;
}

void removeHalfDone(const std::string& folder) {
  std::vector<fs::path> files;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (isHalfDone(entry->path().filename().string())) {
      files.push_back(entry->path());
    }
  }
  for (const fs::path& file : files) {
    fs::remove(file, error);
  }
}

}  // namespace

bool SaveNotes::exists() const {
  return isThere(folder_);
}

bool SaveNotes::hasWriting() const {
  return isThere(writingPath());
}

std::optional<WriteJournal> SaveNotes::writing() const {
  return journalIn(writingPath());
}

std::optional<WriteJournal> SaveNotes::saved() const {
  return journalIn(savedPath());
}

FileFailure SaveNotes::begin(const WriteJournal& journal) const {
  removeHalfDone(folder_);
  return replaceFile(writingPath(), textOf(journal));
}

FileFailure SaveNotes::finish() const {
  return renameFile(writingPath(), savedPath());
}

FileFailure SaveNotes::forget() const {
  return removeFile(writingPath());
}

FileFailure SaveNotes::announce(const std::string& contents, const std::string& reason) const {
  if (FileFailure failed = makeFolders(folder_)) {
    return failed;
  }
  const std::string text = ContentMark::of(contents).sha256 + "\n" + reason;
  return replaceFile(folder_ + "/" + kAnnouncement, text);
}

std::string SaveNotes::takeAnnounced(const std::string& contents) const {
  const std::string path = folder_ + "/" + kAnnouncement;
  const std::string text = readWholeFile(path).contents.value_or("");
  if (text.empty()) {
    return {};
  }
  std::error_code ignored;
  fs::remove(path, ignored);
  const std::string mark = ContentMark::of(contents).sha256 + "\n";
  return text.starts_with(mark) ? text.substr(mark.size()) : std::string();
}

}  // namespace zephyl::linux_host
