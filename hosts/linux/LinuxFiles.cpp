#include "hosts/linux/LinuxFiles.h"

#include <filesystem>
#include <set>
#include <system_error>
#include <utility>

#include "platform/foundation/NSError.h"
#include "platform/foundation/SystemLog.h"

#include "hosts/linux/FileContents.h"

namespace zephyl::linux_host {

namespace fs = std::filesystem;

LinuxFiles::LinuxFiles(const DeviceRoot& root, SystemLog& log, Clock& clock,
                       OverwriteGuard::NeedsCopy needsCopyBeforeOverwrite, SafetyOptions safety)
    : root_(root),
      log_(log),
      access_(root, log, clock, std::move(needsCopyBeforeOverwrite), std::move(safety)) {}

std::optional<std::string> LinuxFiles::contentsAtPath(const std::string& path) {
  return access_.read(path);
}

bool LinuxFiles::writeToFile(const std::string& path, const std::string& contents) {
  return access_.write(path, contents, WriteMode::kInPlace);
}

bool LinuxFiles::writeToFileAtomically(const std::string& path, const std::string& contents) {
  return access_.write(path, contents, WriteMode::kReplace);
}

bool LinuxFiles::fileExistsAtPath(const std::string& path) {
  const DeviceLocation location = root_.forReading(path);
  std::error_code error;
  return location.refusal.empty() && fs::exists(location.path, error);
}

bool LinuxFiles::isSymbolicLinkAtPath(const std::string& path) {
  return root_.isLink(path);
}

bool LinuxFiles::createDirectoryAtPath(const std::string& path, NSError* error) {
  const DeviceLocation location = root_.forWriting(path);
  FileFailure failed =
      location.refusal.empty() ? makeFolders(location.path) : FileFailure(location.refusal);
  std::error_code unknown;
  if (!failed && !fs::is_directory(location.path, unknown)) {
    failed = "there is a file of that name";
  }
  if (failed) {
    const std::string problem = path + ": not made: " + *failed;
    log_.log(problem);
    if (error != nullptr) {
      *error = NSError(kNSCocoaErrorDomain, kNSFileWriteUnknownError,
                       {{kNSLocalizedDescriptionKey, problem}});
    }
  }
  return !failed;
}

std::vector<std::string> LinuxFiles::contentsOfDirectoryAtPath(const std::string& path) {
  std::set<std::string> names;
  for (const std::string& folder : root_.foldersOf(path)) {
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
      names.insert(entry->path().filename().string());
    }
    if (error && error != std::errc::no_such_file_or_directory &&
        error != std::errc::not_a_directory) {
      log_.log(std::string(path)
                   .append(": not listed: ")
                   .append(folder)
                   .append(": ")
                   .append(error.message()));
    }
  }
  return {names.begin(), names.end()};
}

}  // namespace zephyl::linux_host
