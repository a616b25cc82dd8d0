#include "apps/springboard/GroupsService.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "platform/Host.h"
#include "platform/foundation/Dictionary.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSKeyedArchive.h"
#include "platform/foundation/PropertyList.h"
#include "platform/foundation/PropertyListFile.h"
#include "platform/foundation/SystemLog.h"
#include "platform/uikit/UIImage.h"

#include "apps/springboard/PictureFile.h"
#include "hosts/linux/MessageServer.h"
#include "model/GroupsFileCheck.h"
#include "model/ZephylKeys.h"

namespace zephyl::app {

namespace {

using Reply = std::optional<Dictionary>;

void refuse(const char* message, const std::string& reason) {
  host().systemLog().log(std::string(message) + " refused: " + reason);
}

Value dataOf(const Dictionary* userInfo) {
  return userInfo == nullptr ? Value() : (*userInfo)[kServiceMessageData];
}

bool isArrayOfDictionaries(const Value& value) {
  return value.ifArray() != nullptr &&
         std::all_of(value.ifArray()->begin(), value.ifArray()->end(),
                     [](const Value& element) { return element.ifDictionary() != nullptr; });
}

// A name right in the pictures directory.
bool isPicturePath(const std::string& path) {
  const std::string directory = std::string(kGroupPicturesDirectory) + "/";
  if (path.rfind(directory, 0) != 0) {
    return false;
  }
  const std::string name = path.substr(directory.size());
  return !name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos;
}

// Nothing for a picture of a group. What a link leads to, such as the groups file, is none.
std::optional<std::string> whyNoPicture(const std::string& path) {
  if (!isPicturePath(path)) {
    return "no picture of a group: " + path;
  }
  for (const std::string& item : {std::string(kGroupPicturesDirectory), path}) {
    if (host().files().isSymbolicLinkAtPath(item)) {
      return "a symbolic link: " + item;
    }
  }
  return std::nullopt;
}

Reply getGroups() {
  const auto groups = arrayWithContentsOfFile(kGroupsFilePath);
  return groups ? Reply(Dictionary{{kServiceMessageData, *groups}}) : Reply(Dictionary());
}

Reply saveGroups(const Dictionary* userInfo) {
  const Value groups = dataOf(userInfo);
  bool saved = false;
  if (isArrayOfDictionaries(groups)) {
    saved = writeToFile(groups, kGroupsFilePath);
  } else {
    refuse(kSaveGroupsMessage, "the groups are no array of dictionaries");
  }
  return Dictionary{{kServiceMessageData, saved}};
}

Reply getPicture(const Dictionary* userInfo) {
  const Value path = dataOf(userInfo);
  // A group without a picture asks with an empty path.
  if (path.ifString() == nullptr || path.ifString()->empty()) {
    return Dictionary();
  }
  if (const auto reason = whyNoPicture(*path.ifString())) {
    refuse(kServiceMessageData, *reason);
    return Dictionary();
  }
  const auto file = host().files().contentsAtPath(*path.ifString());
  if (!file) {
    return Dictionary();
  }
  return Dictionary{
      {kServiceMessageData, archivedImage(UIImage(Data(file->begin(), file->end())))}};
}

// Nothing when it is saved.
std::optional<std::string> whyPictureNotSaved(const Value& archive) {
  if (archive.ifData() == nullptr) {
    return "there is no archive";
  }
  const PropertyListResult request = unarchivedValue(*archive.ifData());
  if (!request.ok()) {
    return request.error().message("the archive");
  }
  if (request.value().ifDictionary() == nullptr) {
    return "the archive holds no dictionary";
  }
  const Dictionary& picture = *request.value().ifDictionary();
  const UIImageRef image = imageOfValue(picture[kSaveImageKey]);
  const Value path = picture[kSaveImagePathKey];
  if (image == nullptr || path.ifString() == nullptr) {
    return "the archive holds no image with a path";
  }
  if (auto reason = whyNoPicture(*path.ifString())) {
    return reason;
  }
  const StoredPicture stored = storedPicture(image->file());
  if (!stored.refusal.empty()) {
    return *path.ifString() + ": " + stored.refusal;
  }
  return host().files().writeToFileAtomically(*path.ifString(), stored.png)
             ? std::nullopt
             : std::optional(*path.ifString() + ": not written");
}

Reply savePicture(const Dictionary* userInfo) {
  const auto reason = whyPictureNotSaved(dataOf(userInfo));
  if (reason) {
    refuse(kSaveImageMessage, *reason);
  }
  return Dictionary{{kServiceMessageData, !reason.has_value()}};
}

}  // namespace

void serveGroups(linux_host::MessageServer& server) {
  using Turn = std::shared_ptr<std::mutex>;
  const auto serve = [&](const char* message, const Turn& oneAtATime,
                         Reply (*answer)(const Dictionary*)) {
    server.setHandler(kZephylsMessageCenter, message,
                      [oneAtATime, answer](const Dictionary* userInfo) {
                        const std::lock_guard lock(*oneAtATime);
                        return answer(userInfo);
                      });
  };
  // A save that runs while another thread reads would show half a file.
  const auto groups = std::make_shared<std::mutex>();
  serve(kGetGroupsMessage, groups, [](const Dictionary* /*userInfo*/) { return getGroups(); });
  serve(kSaveGroupsMessage, groups, saveGroups);
  serve(kServiceMessageData, groups, getPicture);
  // Large pictures take time and memory: one by one, and nobody else waits.
  serve(kSaveImageMessage, std::make_shared<std::mutex>(), savePicture);
}

std::optional<std::string> whyKeepGroupsFile(const std::string& path, const std::string& contents) {
  if (path != kGroupsFilePath) {
    return std::nullopt;
  }
  if (auto reason = whyNoGroupsFile(contents)) {
    return reason;
  }
  const Dictionary reply{{kServiceMessageData, readPropertyList(contents).value()}};
  if (const auto reason = whyNotBinaryPropertyList(reply)) {
    return "no message can carry the groups: " + *reason;
  }
  // A text file at most doubles, when its texts become UTF-16; in a binary one parts may be shared.
  constexpr std::size_t kMost = linux_host::kMaximumMessageBytes;
  const bool mayBeTooLarge = contents.size() > kMost / 2 || contents.starts_with("bplist");
  if (mayBeTooLarge && writeBinaryPropertyList(reply).size() > kMost) {
    return std::string("no message can carry the groups: they are too large");
  }
  return std::nullopt;
}

}  // namespace zephyl::app
