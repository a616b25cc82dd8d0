// What is stored of a group. The plain properties, each as it stands: a setter stores directly, and
// the value then takes the place of one of a wrong type that was carried along for its key.
//
// Not locked, as the record; members and flags may be read from the background queue.

#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/Export.h"
#include "platform/Published.h"
#include "platform/foundation/Dictionary.h"

#include "model/MemberSet.h"
#include "model/ZephylSystemMode.h"

namespace zephyl {

class ZP_EXPORT ZephylProperties {
 public:
  ZephylProperties(const ZephylProperties&) = delete;
  ZephylProperties& operator=(const ZephylProperties&) = delete;

  [[nodiscard]] std::int64_t identifier() const { return identifier_; }
  void setIdentifier(std::int64_t value);
  [[nodiscard]] const std::string& title() const { return title_; }
  void setTitle(std::string value);
  [[nodiscard]] const std::string& subTitle() const { return subTitle_; }
  void setSubTitle(std::string value);
  // A file name in the pictures directory; empty without a picture.
  [[nodiscard]] const std::string& headerImagePath() const { return headerImagePath_; }
  void setHeaderImagePath(std::string value);
  [[nodiscard]] const std::string& backGroundImagePath() const { return backGroundImagePath_; }
  void setBackGroundImagePath(std::string value);
  // Eight lower-case hexadecimal digits: red, green, blue, alpha.
  [[nodiscard]] const std::string& markerCode() const { return markerCode_; }
  void setMarkerCode(std::string value);
  // Its getter, of the record, has a default.
  void setMaskedMessage(std::string value);
  // Null until set or read from a dictionary.
  [[nodiscard]] std::shared_ptr<const MemberSet> contacts() const { return contacts_.load(); }
  void setContacts(std::shared_ptr<const MemberSet> value);
  [[nodiscard]] const std::optional<Date>& createdDate() const { return createdDate_; }
  void setCreatedDate(std::optional<Date> value);
  [[nodiscard]] const std::optional<Date>& updatedDate() const { return updatedDate_; }
  void setUpdatedDate(std::optional<Date> value);
  [[nodiscard]] bool isEnabled() const { return enabled_; }
  void setEnabled(bool value);
  [[nodiscard]] bool isActive() const { return active_; }
  void setActive(bool value);
  [[nodiscard]] bool isSystem() const { return system_; }
  void setSystem(bool value);
  // Its getter, of the record, asks for biometrics.
  void setPasswordProtected(bool value);
  [[nodiscard]] std::int64_t zephylSystemMode() const { return zephylSystemMode_; }
  void setZephylSystemMode(std::int64_t value);
  [[nodiscard]] bool shouldHideConversationsInDefaultGroups() const {
    return hidesInDefaultGroups_;
  }
  void setShouldHideConversationsInDefaultGroups(bool value);
  [[nodiscard]] bool shouldHideConversationsOnLockScreen() const { return hidesOnLockScreen_; }
  void setShouldHideConversationsOnLockScreen(bool value);

 protected:
  ZephylProperties() = default;
  ~ZephylProperties() = default;

  std::int64_t identifier_ = 0;
  std::string title_;
  std::string subTitle_;
  std::string headerImagePath_;
  std::string backGroundImagePath_;
  std::string markerCode_;
  std::string maskedMessage_;
  Published<const MemberSet> contacts_;
  std::optional<Date> createdDate_;
  std::optional<Date> updatedDate_;
  std::atomic<bool> enabled_ = false;
  std::atomic<bool> active_ = false;
  std::atomic<bool> system_ = false;
  std::atomic<bool> passwordProtected_ = false;
  std::atomic<std::int64_t> zephylSystemMode_ = 0;
  std::atomic<bool> hidesInDefaultGroups_ = false;
  std::atomic<bool> hidesOnLockScreen_ = false;
  // By key: what was read with another type than its key has, and what this library does not know.
  Dictionary carried_;
};

}  // namespace zephyl
