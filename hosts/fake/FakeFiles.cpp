#include "hosts/fake/FakeFiles.h"

#include <utility>

namespace zephyl::fake {

namespace {

void setMembership(std::set<std::string>& set, const std::string& path, bool isMember) {
  if (isMember) {
    set.insert(path);
  } else {
    set.erase(path);
  }
}

}  // namespace

std::optional<std::string> FakeFiles::contentsAtPath(const std::string& path) {
  const std::lock_guard lock(mutex_);
  ++reads_[path];
  const auto file = files_.find(path);
  if (file != files_.end() && !unreadable_.contains(path)) {
    return file->second;
  }
  if (file != files_.end() || isDirectory(path)) {
    log_.log(path + ": not read: " + (isDirectory(path) ? "a folder" : "made to fail"));
  }
  return std::nullopt;
}

const char* FakeFiles::whyNotWritable(const std::string& path) const {
  if (unwritable_.contains(path)) {
    return "made to fail";
  }
  if (isDirectory(path)) {
    return "a folder";
  }
  return liesBelowFile(path) ? "a part of its path is a file" : nullptr;
}

bool FakeFiles::writeToFile(const std::string& path, const std::string& contents) {
  const std::lock_guard lock(mutex_);
  return write(path, contents, /*atomically=*/false);
}

bool FakeFiles::writeToFileAtomically(const std::string& path, const std::string& contents) {
  const std::lock_guard lock(mutex_);
  return write(path, contents, /*atomically=*/true);
}

bool FakeFiles::write(const std::string& path, const std::string& contents, bool atomically) {
  ++writes_[path];
  if (const char* reason = whyNotWritable(path)) {
    log_.log(path + ": not written: " + reason);
    return false;
  }
  const auto room = roomFor_.find(path);
  if (room != roomFor_.end() && room->second < contents.size()) {
    if (!atomically) {
      files_[path] = contents.substr(0, room->second);
    }
    log_.log(path + ": not written: no space left");
    return false;
  }
  files_[path] = contents;
  return true;
}

bool FakeFiles::fileExistsAtPath(const std::string& path) {
  const std::lock_guard lock(mutex_);
  return files_.contains(path) || isDirectory(path);
}

bool FakeFiles::isSymbolicLinkAtPath(const std::string& path) {
  const std::lock_guard lock(mutex_);
  return links_.contains(path);
}

std::vector<std::string> FakeFiles::contentsOfDirectoryAtPath(const std::string& path) {
  const std::lock_guard lock(mutex_);
  const std::string prefix = path + "/";
  std::set<std::string> names;
  for (auto at = files_.lower_bound(prefix); at != files_.end() && at->first.starts_with(prefix);
       ++at) {
    names.insert(
        at->first.substr(prefix.size(), at->first.find('/', prefix.size()) - prefix.size()));
  }
  return {names.begin(), names.end()};
}

bool FakeFiles::createDirectoryAtPath(const std::string& path, NSError* error) {
  const std::lock_guard lock(mutex_);
  const auto refused = unmakeable_.find(path);
  if (refused == unmakeable_.end() && !files_.contains(path) && !liesBelowFile(path)) {
    folders_.insert(path);
    return true;
  }
  log_.log(path + ": not made");
  if (error != nullptr) {
    const NSError inTheWay(kNSCocoaErrorDomain, kNSFileWriteUnknownError,
                           {{kNSLocalizedDescriptionKey, "There is a file of that name."}});
    *error = refused == unmakeable_.end() ? inTheWay : refused->second.value_or(NSError());
  }
  return false;
}

bool FakeFiles::isDirectory(const std::string& path) const {
  const auto made = folders_.lower_bound(path);
  if (made != folders_.end() && (*made == path || made->starts_with(path + "/"))) {
    return true;
  }
  const std::string prefix = path + "/";
  const auto at = files_.lower_bound(prefix);
  return at != files_.end() && at->first.starts_with(prefix);
}

bool FakeFiles::liesBelowFile(const std::string& path) const {
  for (std::size_t slash = path.find('/', 1); slash != std::string::npos;
       slash = path.find('/', slash + 1)) {
    if (files_.contains(path.substr(0, slash))) {
      return true;
    }
  }
  return false;
}

void FakeFiles::put(const std::string& path, std::string contents) {
  const std::lock_guard lock(mutex_);
  files_[path] = std::move(contents);
}

void FakeFiles::removeFile(const std::string& path) {
  const std::lock_guard lock(mutex_);
  files_.erase(path);
}

void FakeFiles::markAsLink(const std::string& path) {
  const std::lock_guard lock(mutex_);
  links_.insert(path);
}

void FakeFiles::failReading(const std::string& path, bool fails) {
  const std::lock_guard lock(mutex_);
  setMembership(unreadable_, path, fails);
}

void FakeFiles::failWriting(const std::string& path, bool fails) {
  const std::lock_guard lock(mutex_);
  setMembership(unwritable_, path, fails);
}

void FakeFiles::failMakingFolder(const std::string& path, std::optional<NSError> error) {
  const std::lock_guard lock(mutex_);
  unmakeable_[path] = std::move(error);
}

void FakeFiles::failWritingAfter(const std::string& path, std::size_t bytes) {
  const std::lock_guard lock(mutex_);
  roomFor_[path] = bytes;
}

int FakeFiles::writesOf(const std::string& path) {
  const std::lock_guard lock(mutex_);
  return writes_[path];
}

int FakeFiles::readsOf(const std::string& path) {
  const std::lock_guard lock(mutex_);
  return reads_[path];
}

}  // namespace zephyl::fake
