#include "platform/foundation/PropertyListFile.h"

#include "platform/Host.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/PropertyList.h"
#include "platform/foundation/SystemLog.h"

namespace zephyl {

namespace {

// A null value when there is nothing to read.
Value contentsOfFile(const std::string& path) {
  const auto bytes = host().files().contentsAtPath(path);
  if (!bytes) {
    return Value();
  }
  const PropertyListResult result = readPropertyList(*bytes);
  if (!result.ok()) {
    logError(result.error().message(path));
    return Value();
  }
  return result.value();
}

void logWrongRoot(const Value& root, const std::string& path, const char* expected) {
  if (!root.isNull()) {
    logError(path + ": the property list is no " + expected);
  }
}

}  // namespace

std::optional<Array> arrayWithContentsOfFile(const std::string& path) {
  const Value root = contentsOfFile(path);
  if (root.ifArray() == nullptr) {
    logWrongRoot(root, path, "array");
    return std::nullopt;
  }
  return *root.ifArray();
}

std::optional<Dictionary> dictionaryWithContentsOfFile(const std::string& path) {
  const Value root = contentsOfFile(path);
  if (root.ifDictionary() == nullptr) {
    logWrongRoot(root, path, "dictionary");
    return std::nullopt;
  }
  return *root.ifDictionary();
}

bool writeToFile(const Value& root, const std::string& path) {
  if (!whyNotXmlPropertyList(root)) {
    return host().files().writeToFile(path, writeXmlPropertyList(root));
  }
  if (const auto reason = whyNotBinaryPropertyList(root)) {
    logError(path + ": not written: " + *reason);
    return false;
  }
  const Data bytes = writeBinaryPropertyList(root);
  return host().files().writeToFile(path, std::string(bytes.begin(), bytes.end()));
}

}  // namespace zephyl
