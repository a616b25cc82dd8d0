#include "model/ZephylProperties.h"

#include <utility>

#include "model/ZephylKeys.h"

namespace zephyl {

void ZephylProperties::setIdentifier(std::int64_t value) {
  identifier_ = value;
  carried_.remove(keys::kIdentifier);
}

void ZephylProperties::setTitle(std::string value) {
  title_ = std::move(value);
  carried_.remove(keys::kTitle);
}

void ZephylProperties::setSubTitle(std::string value) {
  subTitle_ = std::move(value);
  carried_.remove(keys::kSubTitle);
}

void ZephylProperties::setHeaderImagePath(std::string value) {
  headerImagePath_ = std::move(value);
  carried_.remove(keys::kHeaderImagePath);
}

void ZephylProperties::setBackGroundImagePath(std::string value) {
  backGroundImagePath_ = std::move(value);
  carried_.remove(keys::kBackGroundImagePath);
}

void ZephylProperties::setMarkerCode(std::string value) {
  markerCode_ = std::move(value);
  carried_.remove(keys::kMarkerCode);
}

void ZephylProperties::setMaskedMessage(std::string value) {
  maskedMessage_ = std::move(value);
  carried_.remove(keys::kMaskedMessage);
}

void ZephylProperties::setContacts(std::shared_ptr<const MemberSet> value) {
  contacts_.store(std::move(value));
  carried_.remove(keys::kContacts);
}

void ZephylProperties::setCreatedDate(std::optional<Date> value) {
  createdDate_ = value;
  carried_.remove(keys::kCreatedDate);
}

void ZephylProperties::setUpdatedDate(std::optional<Date> value) {
  updatedDate_ = value;
  carried_.remove(keys::kUpdatedDate);
}

void ZephylProperties::setEnabled(bool value) {
  enabled_ = value;
  carried_.remove(keys::kEnabled);
}

void ZephylProperties::setActive(bool value) {
  active_ = value;
  carried_.remove(keys::kActive);
}

void ZephylProperties::setSystem(bool value) {
  system_ = value;
  carried_.remove(keys::kSystem);
}

void ZephylProperties::setPasswordProtected(bool value) {
  passwordProtected_ = value;
  carried_.remove(keys::kPasswordProtected);
}

void ZephylProperties::setZephylSystemMode(std::int64_t value) {
  zephylSystemMode_ = value;
  carried_.remove(keys::kZephylSystemMode);
}

void ZephylProperties::setShouldHideConversationsInDefaultGroups(bool value) {
  hidesInDefaultGroups_ = value;
  carried_.remove(keys::kHidesInDefaultGroups);
}

void ZephylProperties::setShouldHideConversationsOnLockScreen(bool value) {
  hidesOnLockScreen_ = value;
  carried_.remove(keys::kHidesOnLockScreen);
}

}  // namespace zephyl
