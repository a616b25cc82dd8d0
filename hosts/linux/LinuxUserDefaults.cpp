#include "hosts/linux/LinuxUserDefaults.h"

#include <utility>

#include <sys/stat.h>

#include "platform/foundation/PropertyList.h"
#include "platform/foundation/SystemLog.h"

namespace zephyl::linux_host {

namespace {

std::string pathOfDomain(const std::string& name) {
  return "/var/mobile/Library/Preferences/" + name + ".plist";
}

// A name is one part of a path.
bool isDomainName(const std::string& name) {
  return !name.empty() && name.find('/') == std::string::npos;
}

std::optional<std::string> whyUnreadable(const std::string& /*path*/, const std::string& contents) {
  const PropertyListResult result = readPropertyList(contents);
  if (!result.ok()) {
    return "its preferences could not be read (" + result.error().message("property list") + ")";
  }
  return result.value().ifDictionary() == nullptr
             ? std::optional<std::string>("its preferences are no dictionary")
             : std::nullopt;
}

}  // namespace

LinuxUserDefaults::LinuxUserDefaults(const DeviceRoot& root, SystemLog& log, Clock& clock,
                                     std::string bundleIdentifier)
    : root_(root),
      log_(log),
      access_(root, log, clock, whyUnreadable),
      bundleIdentifier_(std::move(bundleIdentifier)),
      ownPath_(pathOfDomain(bundleIdentifier_)) {}

std::optional<Dictionary> LinuxUserDefaults::read(const std::string& path) {
  const std::optional<std::string> contents = access_.read(path);
  if (!contents) {
    return std::nullopt;
  }
  const PropertyListResult result = readPropertyList(*contents);
  if (!result.ok()) {
    log_.log(result.error().message(path));
    return std::nullopt;
  }
  if (result.value().ifDictionary() == nullptr) {
    log_.log(path + ": the property list is no dictionary");
    return std::nullopt;
  }
  return *result.value().ifDictionary();
}

bool LinuxUserDefaults::write(const Dictionary& domain, const std::string& path) {
  if (const auto reason = whyNotBinaryPropertyList(domain)) {
    log_.log(path + ": not written: " + *reason);
    return false;
  }
  const Data bytes = writeBinaryPropertyList(domain);
  return access_.write(path, std::string(bytes.begin(), bytes.end()), WriteMode::kReplace);
}

LinuxUserDefaults::Stamp LinuxUserDefaults::stampOfOwnFile() const {
  struct stat status {};
  const DeviceLocation location = root_.forReading(ownPath_);
  if (!location.refusal.empty() || ::stat(location.path.c_str(), &status) != 0) {
    return {};
  }
  return {status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

void LinuxUserDefaults::refresh() {
  const Stamp stamp = stampOfOwnFile();
  if (seen_ != stamp) {
    seen_ = stamp;
    saved_ = read(ownPath_).value_or(Dictionary());
  }
}

Dictionary LinuxUserDefaults::withUnsaved(Dictionary saved) const {
  for (const auto& [key, value] : unsaved_) {
    saved.set(key, value);
  }
  return saved;
}

std::int64_t LinuxUserDefaults::integerForKey(const std::string& key) {
  const std::lock_guard lock(mutex_);
  if (const Value* value = unsaved_.find(key)) {
    return value->integerValue();
  }
  refresh();
  return saved_[key].integerValue();
}

void LinuxUserDefaults::setInteger(std::int64_t value, const std::string& key) {
  const std::lock_guard lock(mutex_);
  unsaved_.set(key, value);
}

bool LinuxUserDefaults::synchronize() {
  const std::lock_guard lock(mutex_);
  refresh();
  if (unsaved_.empty()) {
    return true;
  }
  Dictionary joined = withUnsaved(saved_);
  if (!write(joined, ownPath_)) {
    return false;
  }
  saved_ = std::move(joined);
  unsaved_ = Dictionary();
  seen_ = stampOfOwnFile();
  return true;
}

std::optional<Dictionary> LinuxUserDefaults::persistentDomainForName(const std::string& name) {
  if (!isDomainName(name)) {
    return std::nullopt;
  }
  const std::lock_guard lock(mutex_);
  std::optional<Dictionary> domain = read(pathOfDomain(name));
  if (name != bundleIdentifier_ || unsaved_.empty()) {
    return domain;
  }
  return withUnsaved(std::move(domain).value_or(Dictionary()));
}

void LinuxUserDefaults::setPersistentDomain(const Dictionary& domain, const std::string& name) {
  if (!isDomainName(name)) {
    log_.log("\"" + name + "\" is no name of a preferences domain");
    return;
  }
  const std::lock_guard lock(mutex_);
  if (write(domain, pathOfDomain(name)) && name == bundleIdentifier_) {
    unsaved_ = Dictionary();
  }
}

}  // namespace zephyl::linux_host
