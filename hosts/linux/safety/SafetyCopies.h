// Writes one file in place so that nothing is ever lost of it: the content before is copied to a
// folder of its own and the write noted in another, both on the disk before the first byte changes.
// A process that ends in the middle leaves what the next one needs to put the old content back; it
// does so by itself, with the first reading or writing, and tells the system log.
//
// Programs and threads exclude one another through a lock in the folder of the notes, which all of
// them must be given alike; folders of copies may differ. Mechanism only: what content is good, and
// what a change is called, is decided by the functions given. Any thread.

#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "hosts/linux/FileContents.h"
#include "hosts/linux/safety/CopyFolder.h"
#include "hosts/linux/safety/SaveNotes.h"
#include "hosts/linux/safety/WriteJournal.h"

namespace zephyl {
class Clock;
class SystemLog;
}  // namespace zephyl

namespace zephyl::linux_host {

class FileLock;

struct SafetyOptions {
  std::string path;    // the phone's path of the file; empty: no file is kept
  std::string folder;  // of the copies, on this machine; made when needed
  std::string notes;   // the folder that goes with the file; made when needed

  // Why content cannot be what the file should hold, so that a good copy takes its place.
  std::function<std::optional<std::string>(const std::string& contents)> whyUnreadable;

  // What a write does, as the reason of the copy made before it.
  std::function<std::string(const std::string& oldContents, const std::string& newContents)>
      describeChange;

  std::chrono::milliseconds longestWait = std::chrono::seconds(10);  // for other programs
};

class SafetyCopies {
 public:
  // Why content must not be overwritten; asked once it is known what the file holds.
  using WhyNot = std::function<FileFailure(const FileReading& old)>;

  // `log` and `clock` must outlive this.
  SafetyCopies(SafetyOptions options, SystemLog& log, Clock& clock);

  // Whether the file of that phone path is the one.
  [[nodiscard]] bool keeps(const std::string& path) const;

  // Never a half-written content. Fails when another program writes for too long, and when an
  // interrupted write cannot be undone. What cannot be written, such as a read-only disk, is read
  // all the same: then a torn file is left and the old content given. Makes no folder.
  [[nodiscard]] FileReading read(const std::string& realPath);

  // Refuses, with the old content untouched, when no copy of it can be made: a change that is
  // answered with NO can be made again, the only groups cannot. Refuses too after a reading that
  // failed, since whoever writes then knows nothing of what is there. Content that the file holds
  // already is not written again.
  [[nodiscard]] FileFailure write(const std::string& realPath, const std::string& contents,
                                  const WhyNot& whyNot);

 private:
  struct Good;

  [[nodiscard]] FileReading readInTurn(const std::string& realPath, bool& isTorn) const;
  [[nodiscard]] FileReading readMended(const std::string& realPath);
  // Changes nothing; for a file that cannot be mended for that reason.
  [[nodiscard]] FileReading readAsIfMended(const std::string& realPath, const std::string& whyNot);

  // The rest is called with the lock held alone.
  [[nodiscard]] FileFailure writeKept(const std::string& realPath, const FileReading& old,
                                      const std::string& contents);
  [[nodiscard]] std::string reasonFor(const std::string& oldContents,
                                      const std::string& newContents) const;
  void undo(const std::string& realPath, const FileReading& old);

  [[nodiscard]] bool needsMending(const FileReading& reading) const;
  [[nodiscard]] FileFailure mend(const std::string& realPath);
  [[nodiscard]] FileFailure mendInterrupted(const std::string& realPath,
                                            const WriteJournal& journal);
  [[nodiscard]] FileFailure mendUnreadable(const std::string& realPath);
  [[nodiscard]] FileFailure replaceTorn(const std::string& realPath, const std::string& why,
                                        const Good& good);
  [[nodiscard]] Good goodFor(const WriteJournal& journal) const;
  [[nodiscard]] std::optional<Good> goodBefore(const WriteJournal& journal) const;
  [[nodiscard]] std::optional<Good> newestGood() const;

  const SafetyOptions options_;
  SystemLog& log_;
  Clock& clock_;
  const CopyFolder copies_;
  const SaveNotes notes_;
  std::atomic<bool> looked_ = false;      // whether the content was once found good, or mended
  std::atomic<bool> readFailed_ = false;  // whether the last reading did
};

}  // namespace zephyl::linux_host
