#include "apps/springboard/GroupsSafety.h"

#include <QCryptographicHash>
#include <algorithm>
#include <filesystem>
#include <system_error>

#include "platform/foundation/PropertyList.h"

#include "apps/springboard/SaveDescription.h"
#include "model/GroupsFileCheck.h"
#include "model/ZephylKeys.h"

namespace zephyl::app {

namespace fs = std::filesystem;

std::string groupCopiesFolder(const std::string& stateFolder, const std::string& deviceRoot) {
  std::error_code error;
  fs::path root = fs::weakly_canonical(deviceRoot, error);
  if (error) {
    root = fs::absolute(deviceRoot, error).lexically_normal();
  }
  // "device/" is "device".
  if (root.filename().empty()) {
    root = root.parent_path();
  }
  const std::string whole = root.string();
  const QByteArray hash =
      QCryptographicHash::hash(QByteArrayView(whole.data(), static_cast<qsizetype>(whole.size())),
                               QCryptographicHash::Sha256);
  const std::string name = root.filename().string() + "-" + hash.toHex().left(8).toStdString();
  return (fs::path(stateFolder) / "copies" / name).string();
}

std::string groupNotesFolder(const std::string& deviceRoot) {
  return (fs::path(deviceRoot) / "safety").string();
}

linux_host::SafetyOptions safetyOfGroups(const std::string& stateFolder,
                                         const std::string& deviceRoot) {
  linux_host::SafetyOptions options;
  options.path = kGroupsFilePath;
  options.folder = groupCopiesFolder(stateFolder, deviceRoot);
  options.notes = groupNotesFolder(deviceRoot);
  options.whyUnreadable = whyNoGroupsAtAll;
  options.describeChange = describeSave;
  return options;
}

std::optional<std::string> whyNoGroupsAtAll(const std::string& contents) {
  auto reason = whyNoGroupsFile(contents);
  if (!reason) {
    return std::nullopt;
  }
  const PropertyListResult list = readPropertyList(contents);
  const Array* elements = list.ok() ? list.value().ifArray() : nullptr;
  const bool hasGroups = elements != nullptr &&
                         std::any_of(elements->begin(), elements->end(), [](const Value& value) {
                           return value.ifDictionary() != nullptr;
                         });
  return hasGroups ? std::nullopt : reason;
}

}  // namespace zephyl::app
