#include "apps/zephyls/GroupPicture.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/Host.h"
#include "platform/appsupport/CPDistributedMessagingCenter.h"
#include "platform/foundation/Dictionary.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSKeyedArchive.h"

#include "apps/common/CommandError.h"
#include "apps/springboard/PictureFile.h"
#include "hosts/linux/FileContents.h"
#include "model/ZephylKeys.h"
#include "services/ZPUtils.h"

namespace zephyl::app {

namespace {

// From version 12 on the system shell writes pictures, for whom it is a request like others.
bool sendPicture(const std::string& path, const std::string& png) {
  const Dictionary picture{{kSaveImageKey, archivableImage(UIImage(Data(png.begin(), png.end())))},
                           {kSaveImagePathKey, path}};
  const Dictionary userInfo{{kServiceMessageData, archivedData(picture)}};
  const auto reply = host().messagingCenter().sendMessageAndReceiveReplyName(
      kZephylsMessageCenter, kSaveImageMessage, &userInfo);
  return reply && (*reply)[kServiceMessageData].boolValue();
}

}  // namespace

std::string checkedPicture(const Data& bytes, const std::string& place) {
  StoredPicture picture = storedPicture(bytes);
  if (!picture.refusal.empty()) {
    throw CommandError(place + ": no picture: " + picture.refusal);
  }
  return std::move(picture.png);
}

std::string checkedPictureFile(const std::string& file) {
  const linux_host::FileReading reading = linux_host::readWholeFile(file);
  if (!reading.contents) {
    throw CommandError(file + ": " +
                       (reading.isMissing() ? "there is no such file" : reading.reason));
  }
  return checkedPicture(Data(reading.contents->begin(), reading.contents->end()), file);
}

void NewPictures::remember(const std::string& path) {
  std::optional<std::string> contents = host().files().contentsAtPath(path);
  // A file that cannot be read must not be taken for none, which would be removed.
  if (contents || !host().files().fileExistsAtPath(path)) {
    before_.push_back({path, std::move(contents)});
  }
}

// Not through the system shell, whatever the release: it takes whole pictures only and removes
// none.
NewPictures::~NewPictures() {
  for (auto one = before_.rbegin(); one != before_.rend(); ++one) {
    if (one->contents) {
      host().files().writeToFileAtomically(one->path, *one->contents);
    } else {
      std::error_code error;
      std::filesystem::remove(places_.onDevice(one->path), error);
    }
  }
}

void NewPictures::store(const ZephylRef& group, const std::string& png) {
  const std::string name = std::to_string(group->identifier()) + ".png";
  const std::string path = std::string(kGroupPicturesDirectory) + "/" + name;
  remember(path);
  const bool stored =
      ZPUtils::isIOS12() ? sendPicture(path, png) : host().files().writeToFileAtomically(path, png);
  if (!stored) {
    throw CommandError("cannot store the picture of the group \"" + group->title() + "\"");
  }
  group->setHeaderImagePath(name);
}

}  // namespace zephyl::app
