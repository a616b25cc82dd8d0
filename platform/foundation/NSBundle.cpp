#include "platform/foundation/NSBundle.h"

#include <map>
#include <memory>
#include <mutex>
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

// What was read of each file last, so that a table is parsed anew only when its bytes are others.
// Any thread.
class KnownTables {
 public:
  // Null when the bytes are no table, which is told in the log.
  std::shared_ptr<const Dictionary> table(const std::string& path, std::string bytes) {
    {
      const std::lock_guard lock(mutex_);
      const auto known = known_.find(path);
      if (known != known_.end() && known->second.bytes == bytes) {
        return known->second.table;
      }
    }
    const StringTableResult texts = readStringTable(bytes);
    if (!texts.ok()) {
      logError(texts.error().message(path));
      return nullptr;
    }
    auto table = std::make_shared<const Dictionary>(texts.table());
    const std::lock_guard lock(mutex_);
    if (known_.size() >= kMost) {
      known_.clear();
    }
    known_.insert_or_assign(path, Known{std::move(bytes), table});
    return table;
  }

 private:
  struct Known {
    std::string bytes;
    std::shared_ptr<const Dictionary> table;
  };

  // More than the languages of the bundles that one process asks.
  static constexpr std::size_t kMost = 32;

  std::mutex mutex_;
  std::map<std::string, Known> known_;
};

KnownTables& knownTables() {
  static KnownTables tables;
  return tables;
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
    auto bytes = host().files().contentsAtPath(path);
    const auto texts = bytes ? knownTables().table(path, *std::move(bytes)) : nullptr;
    const Value* const text = texts == nullptr ? nullptr : texts->find(key);
    if (text != nullptr && text->ifString() != nullptr) {
      return *text->ifString();
    }
  }
  return value && !value->empty() ? *value : key;
}

}  // namespace zephyl
