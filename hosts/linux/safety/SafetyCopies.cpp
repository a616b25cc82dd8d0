#include "hosts/linux/safety/SafetyCopies.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/foundation/Clock.h"
#include "platform/foundation/SystemLog.h"

#include "hosts/linux/PutAside.h"
#include "hosts/linux/safety/FileLock.h"

namespace zephyl::linux_host {

namespace {

constexpr char kBusy[] = "another program has been writing it for too long; try again";

bool isThere(const std::string& path) {
  std::error_code error;
  return std::filesystem::exists(path, error);
}

std::optional<WriteJournal> journalIn(const std::string& path) {
  const FileReading reading = readWholeFile(path);
  return reading.contents ? readJournal(*reading.contents) : std::nullopt;
}

std::optional<ContentMark> markOf(const FileReading& reading) {
  return reading.contents ? std::optional(ContentMark::of(*reading.contents)) : std::nullopt;
}

}  // namespace

// What can take the place of a torn file.
struct SafetyCopies::Good {
  std::string contents;
  std::string name;  // for the user
};

SafetyCopies::SafetyCopies(SafetyOptions options, SystemLog& log, Clock& clock)
    : options_(std::move(options)), log_(log), clock_(clock), copies_(options_.folder) {}

bool SafetyCopies::keeps(const std::string& path) const {
  return !options_.path.empty() && path == options_.path;
}

FileReading SafetyCopies::read(const std::string& realPath) {
  FileReading reading;
  // A folder that cannot be made holds nothing to mend with.
  const bool hasFolder = !makeFolders(copies_.path());
  bool isTorn = false;
  {
    const FileLock turn(lockPath(), FileLock::Kind::kShared, options_.longestWait);
    if (turn.timedOut()) {
      reading.reason = kBusy;
    } else {
      reading = readWholeFile(realPath);
      isTorn = hasFolder && needsMending(reading);
    }
  }
  if (isTorn) {
    const FileLock turn(lockPath(), FileLock::Kind::kExclusive, options_.longestWait);
    if (turn.timedOut()) {
      reading = {std::nullopt, kBusy};
    } else if (FileFailure failed = mend(realPath)) {
      reading = {std::nullopt, *failed};
    } else {
      reading = readWholeFile(realPath);
    }
  }
  looked_ = looked_ || reading.contents;
  readFailed_ = !reading.reason.empty();
  return reading;
}

FileFailure SafetyCopies::write(const std::string& realPath, const std::string& contents,
                                const WhyNot& whyNot) {
  if (readFailed_) {
    return "it could not be read before, so its groups would be lost";
  }
  if (FileFailure failed = makeFolders(copies_.path())) {
    return "no safety copy can be kept: " + *failed;
  }
  const FileLock turn(lockPath(), FileLock::Kind::kExclusive, options_.longestWait);
  if (turn.timedOut() || !turn.failure().empty()) {
    return turn.timedOut() ? kBusy : "no safety copy can be kept: " + turn.failure();
  }
  if (FileFailure failed = mend(realPath)) {
    return failed;
  }
  const FileReading old = readWholeFile(realPath);
  if (old.contents == contents) {
    return std::nullopt;
  }
  if (FileFailure refused = whyNot(old)) {
    return refused;
  }
  return writeKept(realPath, old, contents);
}

std::string SafetyCopies::reasonFor(const std::string& oldContents,
                                    const std::string& newContents) const {
  std::string announced = copies_.takeAnnounced(newContents);
  if (!announced.empty() || !options_.describeChange) {
    return announced;
  }
  return options_.describeChange(oldContents, newContents);
}

FileFailure SafetyCopies::writeKept(const std::string& realPath, const FileReading& old,
                                    const std::string& contents) {
  WriteJournal journal{markOf(old), "", contents};
  if (old.contents && !(options_.whyUnreadable && options_.whyUnreadable(*old.contents))) {
    CopyFolder::Kept kept =
        copies_.keep(*old.contents, reasonFor(*old.contents, contents), clock_.now());
    if (kept.failure) {
      return "no safety copy can be kept: " + *kept.failure;
    }
    journal.copy = std::move(kept.name);
    copies_.removeSurplus();
  }
  if (FileFailure failed = replaceFile(journalPath(), textOf(journal))) {
    return "the write cannot be noted: " + *failed;
  }
  if (FileFailure failed = writeInPlace(realPath, contents)) {
    undo(realPath, old);
    return failed;
  }
  looked_ = true;
  // What was saved last stays at hand, for a file that is damaged by others. A note that stays does
  // no harm: the content is what it says.
  if (const FileFailure failed = renameFile(journalPath(), savedPath())) {
    log_.log(options_.path + ": written, but " + *failed);
  }
  return std::nullopt;
}

// After a write that failed and may have changed some of the content.
void SafetyCopies::undo(const std::string& realPath, const FileReading& old) {
  FileFailure failed;
  if (old.isMissing()) {
    failed = removeFile(realPath);
  } else if (readWholeFile(realPath).contents != old.contents) {
    failed = writeInPlace(realPath, old.contents.value_or(""));
  }
  if (!failed) {
    failed = removeFile(journalPath());
  }
  if (failed) {
    log_.log(options_.path + ": the content from before could not be put back yet: " + *failed);
  }
}

bool SafetyCopies::needsMending(const FileReading& reading) const {
  return isThere(journalPath()) || (!looked_ && reading.contents && options_.whyUnreadable &&
                                    options_.whyUnreadable(*reading.contents));
}

FileFailure SafetyCopies::mend(const std::string& realPath) {
  // A journal is written whole or not at all; one that cannot be read was damaged by others and
  // tells nothing.
  if (const auto journal = journalIn(journalPath())) {
    if (FileFailure failed = mendInterrupted(realPath, *journal)) {
      return failed;
    }
  }
  return looked_ ? std::nullopt : mendUnreadable(realPath);
}

FileFailure SafetyCopies::mendInterrupted(const std::string& realPath,
                                          const WriteJournal& journal) {
  const FileReading now = readWholeFile(realPath);
  if (!now.reason.empty()) {
    return "a save was interrupted, and what it left cannot be read: " + now.reason;
  }
  if (now.contents == journal.after) {
    return renameFile(journalPath(), savedPath());
  }
  if (markOf(now) == journal.before) {
    return removeFile(journalPath());
  }
  // Without the old content, there was none or none that anybody could read: then the save is done
  // to its end.
  const Good good = goodBefore(journal).value_or(Good{journal.after, "what was about to be saved"});
  if (FileFailure failed = replaceTorn(realPath, "a save was interrupted", good)) {
    return failed;
  }
  return removeFile(journalPath());
}

FileFailure SafetyCopies::mendUnreadable(const std::string& realPath) {
  const FileReading now = readWholeFile(realPath);
  const auto why =
      now.contents && options_.whyUnreadable ? options_.whyUnreadable(*now.contents) : std::nullopt;
  const auto good = why ? newestGood() : std::nullopt;
  return good ? replaceTorn(realPath, *why, *good) : std::nullopt;
}

FileFailure SafetyCopies::replaceTorn(const std::string& realPath, const std::string& why,
                                      const Good& good) {
  const FileReading torn = readWholeFile(realPath);
  std::string told = options_.path + ": " + why + "; put back: " + good.name;
  if (torn.contents) {
    const KeptAside aside = putAside(realPath, *torn.contents, clock_.now());
    if (aside.failure) {
      return why + ", and what it holds cannot be put aside: " + *aside.failure;
    }
    told += "; what the file held is kept as " + aside.path;
  }
  // A process that ends in the middle of this leaves the same note, or an unreadable file still.
  if (FileFailure failed = replaceFile(realPath, good.contents)) {
    return why + ", and " + good.name + " cannot be put back: " + *failed;
  }
  log_.log(told);
  return std::nullopt;
}

std::optional<SafetyCopies::Good> SafetyCopies::goodBefore(const WriteJournal& journal) const {
  const FileReading copy = copies_.contentsOf(journal.copy);
  if (copy.contents && ContentMark::of(*copy.contents) == journal.before) {
    return Good{*copy.contents, "the safety copy " + journal.copy};
  }
  const auto saved = journalIn(savedPath());
  return saved && ContentMark::of(saved->after) == journal.before
             ? std::optional(Good{saved->after, "what was saved before"})
             : std::nullopt;
}

std::optional<SafetyCopies::Good> SafetyCopies::newestGood() const {
  if (auto saved = journalIn(savedPath()); saved && !options_.whyUnreadable(saved->after)) {
    return Good{std::move(saved->after), "what was saved last"};
  }
  for (const SafetyCopy& copy : copies_.copies()) {
    FileReading reading = copies_.contentsOf(copy.name);
    if (reading.contents && !options_.whyUnreadable(*reading.contents)) {
      return Good{std::move(*reading.contents), "the safety copy " + copy.name};
    }
  }
  return std::nullopt;
}

}  // namespace zephyl::linux_host
