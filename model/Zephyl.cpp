#include "model/Zephyl.h"

#include <utility>

#include "platform/Host.h"
#include "platform/appsupport/CPDistributedMessagingCenter.h"
#include "platform/foundation/Clock.h"
#include "platform/foundation/Description.h"
#include "platform/foundation/NSKeyedArchive.h"
#include "platform/foundation/NSUserDefaults.h"

#include "model/ZPLocalizedText.h"
#include "model/ZephylKeys.h"
#include "services/ZPUtils.h"

namespace zephyl {

namespace {

constexpr char kLastIdentifierKey[] = "LAST_GEN_IDENTIFIER";
constexpr char kDefaultMaskedMessage[] =
    "This message is protected by Zephyls and available in Messages app only.";

// As the phone joins path components: one slash between the two, none at the end.
std::string joined(const std::string& directory, const std::string& component) {
  const std::size_t first = component.find_first_not_of('/');
  if (first == std::string::npos) {
    return directory;
  }
  const std::size_t last = component.find_last_not_of('/');
  return directory + "/" + component.substr(first, last - first + 1);
}

}  // namespace

Zephyl::Zephyl() {
  setUniqueIdentifier();
}

Zephyl::Zephyl(const Dictionary& dictionary) {
  setPropertiesFromDicitonary(dictionary);
  if (identifier_ < 1) {
    setUniqueIdentifier();
  }
}

std::shared_ptr<Zephyl> Zephyl::copy() {
  // Kept: the identifier that this takes is replaced at once, so the counter moves on by one.
  auto copied = std::make_shared<Zephyl>();
  copied->setPropertiesFromDicitonary(dictionaryRepresentation());
  return copied;
}

void Zephyl::setUniqueIdentifier() {
  const std::lock_guard lock(numbering_);
  NSUserDefaults& defaults = host().userDefaults();
  const std::int64_t last = defaults.integerForKey(kLastIdentifierKey);
  const std::int64_t next = last < 1
                                ? static_cast<std::int64_t>(host().clock().now())
                                : static_cast<std::int64_t>(static_cast<std::uint64_t>(last) + 1);
  setIdentifier(next);
  defaults.setInteger(next, kLastIdentifierKey);
  defaults.synchronize();
}

std::string Zephyl::description() {
  return zephyl::description(Value(dictionaryRepresentation()));
}

std::string Zephyl::maskedMessage() const {
  return maskedMessage_.empty() ? zpLocalizedText(kDefaultMaskedMessage) : maskedMessage_;
}

bool Zephyl::isPasswordProtected() {
  if (ZPUtils::supportsTouchID()) {
    return passwordProtected_;
  }
  setPasswordProtected(false);
  return false;
}

UIImageRef Zephyl::headerImage() {
  if (headerImage_ != nullptr) {
    return headerImage_;
  }
  const std::string path =
      headerImagePath_.empty() ? std::string() : joined(kGroupPicturesDirectory, headerImagePath_);
  // Kept: the message bears the name of the data key, and every process sends it on every release.
  const Dictionary userInfo{{kServiceMessageData, path}};
  const auto reply = host().messagingCenter().sendMessageAndReceiveReplyName(
      kZephylsMessageCenter, kServiceMessageData, &userInfo);
  if (reply) {
    if (const Value archive = (*reply)[kServiceMessageData]; archive.ifData() != nullptr) {
      headerImage_ = unarchivedImage(*archive.ifData());
    }
  }
  return headerImage_;
}

}  // namespace zephyl
