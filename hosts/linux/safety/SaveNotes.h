// The folder of the notes that all programs with one kept file share, whatever folders they keep
// copies in: who writes, what is being written, what was saved last, and what was announced.
//
// No locks of its own but for their place; a note is there whole or not at all. Any thread.

#pragma once

#include <optional>
#include <string>
#include <utility>

#include "hosts/linux/FileContents.h"
#include "hosts/linux/safety/WriteJournal.h"

namespace zephyl::linux_host {

class SaveNotes {
 public:
  // Need not exist.
  explicit SaveNotes(std::string folder) : folder_(std::move(folder)) {}

  [[nodiscard]] const std::string& path() const { return folder_; }
  [[nodiscard]] bool exists() const;

  // The file whose lock is held by whoever reads, shared, or writes, alone.
  [[nodiscard]] std::string lockPath() const { return folder_ + "/lock"; }

  // The write that is going on, or was when its process ended. A note is written whole or not at
  // all; one that cannot be read was damaged by others and tells nothing.
  [[nodiscard]] bool hasWriting() const;
  [[nodiscard]] std::optional<WriteJournal> writing() const;
  [[nodiscard]] std::optional<WriteJournal> saved() const;

  // Each on the disk when it returns. `begin` also removes what a process left half-done.
  [[nodiscard]] FileFailure begin(const WriteJournal& journal) const;
  [[nodiscard]] FileFailure finish() const;
  [[nodiscard]] FileFailure forget() const;

  // The next content to be written under another reason than what it changes, such as one that
  // goes back to a copy. Makes the folder. Whoever writes next takes it, and learns the reason if
  // it was meant.
  [[nodiscard]] FileFailure announce(const std::string& contents, const std::string& reason) const;
  [[nodiscard]] std::string takeAnnounced(const std::string& contents) const;

 private:
  [[nodiscard]] std::string writingPath() const { return folder_ + "/" + kJournalName; }
  [[nodiscard]] std::string savedPath() const { return folder_ + "/saved"; }

  std::string folder_;
};

}  // namespace zephyl::linux_host
