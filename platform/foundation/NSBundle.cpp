#include "platform/foundation/NSBundle.h"

#include <utility>
#include <vector>

#include "platform/Host.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/ProcessInfo.h"
#include "platform/foundation/StringTable.h"
#include "platform/foundation/SystemLog.h"

namespace zephyl {

namespace {

// The folder names under which a language's texts may stand, the best first: "zh-Hans-CN" is served
// by "zh-Hans-CN", "zh-Hans" and "zh".
std::vector<std::string> localizations(const std::vector<std::string>& languages) {
  std::vector<std::string> names;
  for (std::string language : languages) {
    for (;;) {
      names.push_back(language);
      const std::size_t dash = language.rfind('-');
      if (dash == std::string::npos) {
        break;
      }
      language.resize(dash);
    }
  }
  names.emplace_back("en");
  names.emplace_back("Base");
  return names;
}

}  // namespace

NSBundle::NSBundle(std::string path) : path_(std::move(path)) {}

std::shared_ptr<NSBundle> NSBundle::bundleWithPath(const std::string& path) {
  if (host().files().contentsOfDirectoryAtPath(path).empty()) {
    return nullptr;
  }
  return std::shared_ptr<NSBundle>(new NSBundle(path));
}

std::shared_ptr<NSBundle> NSBundle::mainBundle() {
  return std::shared_ptr<NSBundle>(new NSBundle(host().processInfo().bundlePath()));
}

std::shared_ptr<NSBundle> NSBundle::ckFrameworkBundle() {
  return std::shared_ptr<NSBundle>(
      new NSBundle("/System/Library/PrivateFrameworks/ChatKit.framework"));
}

std::string NSBundle::localizedStringForKey(const std::string& key,
                                            const std::optional<std::string>& value,
                                            const std::optional<std::string>& table) const {
  const std::string file = "/" + table.value_or("Localizable") + ".strings";
  for (const std::string& name : localizations(host().processInfo().preferredLanguages())) {
    const std::string path = std::string(path_).append("/").append(name).append(".lproj") + file;
    const auto bytes = host().files().contentsAtPath(path);
    if (!bytes) {
      continue;
    }
    const StringTableResult texts = readStringTable(*bytes);
    if (!texts.ok()) {
      logError(texts.error().message(path));
      continue;
    }
    if (const Value* text = texts.table().find(key);
        text != nullptr && text->ifString() != nullptr) {
      return *text->ifString();
    }
  }
  return value && !value->empty() ? *value : key;
}

}  // namespace zephyl
