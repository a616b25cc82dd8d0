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
    : options_(std::move(options)),
      log_(log),
      clock_(clock),
      copies_(options_.folder),
      notes_(options_.notes) {}

bool SafetyCopies::keeps(const std::string& path) const {
  return !options_.path.empty() && path == options_.path;
}

FileReading SafetyCopies::readInTurn(const std::string& realPath, bool& isTorn) const {
  const FileLock turn(notes_.lockPath(), FileLock::Kind::kShared, options_.longestWait);
  if (turn.timedOut()) {
    return {std::nullopt, kBusy};
  }
  FileReading reading = readWholeFile(realPath);
  isTorn = needsMending(reading);
  return reading;
}

FileReading SafetyCopies::readMended(const std::string& realPath) {
  FileFailure failed = makeFolders(notes_.path());
  if (failed) {
    return readAsIfMended(realPath, *failed);
  }
  const FileLock turn(notes_.lockPath(), FileLock::Kind::kExclusive, options_.longestWait);
  if (turn.timedOut()) {
    return {std::nullopt, kBusy};
  }
  failed = turn.failure().empty() ? mend(realPath) : turn.failure();
  if (failed) {
    return readAsIfMended(realPath, *failed);
  }
  looked_ = true;
  return readWholeFile(realPath);
}

FileReading SafetyCopies::read(const std::string& realPath) {
  const bool hadNotes = notes_.exists();
  bool isTorn = false;
  FileReading reading = readInTurn(realPath, isTorn);
  // Whoever writes makes the folder before it touches the file.
  if (!hadNotes && notes_.exists()) {
    reading = readInTurn(realPath, isTorn);
  }
  if (isTorn) {
    reading = readMended(realPath);
  }
  looked_ = looked_ || (reading.contents && !isTorn);
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
  if (FileFailure failed = makeFolders(notes_.path())) {
    return "the write cannot be noted: " + *failed;
  }
  const FileLock turn(notes_.lockPath(), FileLock::Kind::kExclusive, options_.longestWait);
  if (turn.timedOut() || !turn.failure().empty()) {
    return turn.timedOut() ? kBusy : "the write cannot be noted: " + turn.failure();
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
  std::string announced = notes_.takeAnnounced(newContents);
  if (!announced.empty() || !options_.describeChange) {
    return announced;
  }
  return options_.describeChange(oldContents, newContents);
}

FileFailure SafetyCopies::writeKept(const std::string& realPath, const FileReading& old,
                                    const std::string& contents) {
  WriteJournal journal{markOf(old), "", contents};
  if (old.contents && !(options_.whyUnreadable && options_.whyUnreadable(*old.contents))) {
    const CopyFolder::Kept kept =
        copies_.keep(*old.contents, reasonFor(*old.contents, contents), clock_.now());
    if (kept.failure) {
      return "no safety copy can be kept: " + *kept.failure;
    }
    journal.copy = copies_.contentPath(kept.name);
    copies_.removeSurplus();
  }
  if (FileFailure failed = notes_.begin(journal)) {
    return "the write cannot be noted: " + *failed;
  }
  if (FileFailure failed = writeInPlace(realPath, contents)) {
    undo(realPath, old);
    return failed;
  }
  looked_ = true;
  // What was saved last stays at hand, for a file that is damaged by others. A note that stays does
  // no harm: the content is what it says.
  if (const FileFailure failed = notes_.finish()) {
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
    failed = notes_.forget();
  }
  if (failed) {
    log_.log(options_.path + ": the content from before could not be put back yet: " + *failed);
  }
}

bool SafetyCopies::needsMending(const FileReading& reading) const {
  return notes_.hasWriting() || (!looked_ && reading.contents && options_.whyUnreadable &&
                                 options_.whyUnreadable(*reading.contents));
}

FileFailure SafetyCopies::mend(const std::string& realPath) {
  if (const auto journal = notes_.writing()) {
    if (FileFailure failed = mendInterrupted(realPath, *journal)) {
      return failed;
    }
  }
  return looked_ ? std::nullopt : mendUnreadable(realPath);
}

FileReading SafetyCopies::readAsIfMended(const std::string& realPath, const std::string& whyNot) {
  FileReading now = readWholeFile(realPath);
  const auto journal = notes_.writing();
  std::optional<Good> good;
  if (!now.reason.empty()) {
    return {std::nullopt, whyNot};
  }
  if (journal && now.contents != journal->after && markOf(now) != journal->before) {
    good = goodFor(*journal);
  } else if (now.contents && options_.whyUnreadable && options_.whyUnreadable(*now.contents)) {
    good = newestGood();
  }
  if (good) {
    log_.log(options_.path + ": torn, and cannot be mended: " + whyNot +
             "; read instead: " + good->name);
    now.contents = std::move(good->contents);
  }
  return now;
}

FileFailure SafetyCopies::mendInterrupted(const std::string& realPath,
                                          const WriteJournal& journal) {
  const FileReading now = readWholeFile(realPath);
  if (!now.reason.empty()) {
    return "a save was interrupted, and what it left cannot be read: " + now.reason;
  }
  if (now.contents == journal.after) {
    return notes_.finish();
  }
  if (markOf(now) == journal.before) {
    return notes_.forget();
  }
  const Good good = goodFor(journal);
  if (FileFailure failed = replaceTorn(realPath, "a save was interrupted", good)) {
    return failed;
  }
  return notes_.forget();
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

// Without the old content, there was none or none that anybody could read: then the save is done to
// its end.
SafetyCopies::Good SafetyCopies::goodFor(const WriteJournal& journal) const {
  return goodBefore(journal).value_or(Good{journal.after, "what was about to be saved"});
}

std::optional<SafetyCopies::Good> SafetyCopies::goodBefore(const WriteJournal& journal) const {
  // In the folder of whoever wrote, which may be another one than here.
  const FileReading copy = journal.copy.empty() ? FileReading() : readWholeFile(journal.copy);
  if (copy.contents && ContentMark::of(*copy.contents) == journal.before) {
    const std::string name = std::filesystem::path(journal.copy).stem().string();
    return Good{*copy.contents, "the safety copy " + name};
  }
  const auto saved = notes_.saved();
  return saved && ContentMark::of(saved->after) == journal.before
             ? std::optional(Good{saved->after, "what was saved before"})
             : std::nullopt;
}

std::optional<SafetyCopies::Good> SafetyCopies::newestGood() const {
  if (auto saved = notes_.saved(); saved && !options_.whyUnreadable(saved->after)) {
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
