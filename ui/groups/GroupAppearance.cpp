#include "ui/groups/GroupAppearance.h"

#include "platform/foundation/NSBundle.h"

#include "model/ZPLocalizedText.h"
#include "model/Zephyl.h"

namespace zephyl {

UIColor markerColorOfGroup(const Zephyl& group) {
  const std::string& marker = group.markerCode();
  return marker.empty() ? UIColor::clearColor() : UIColor::__zpColorWithHexString(marker);
}

std::string titleWithUnreadCount(const Zephyl& group, std::int64_t unreadCount) {
  std::string title = group.title();
  if (unreadCount >= 1) {
    title.append(" (").append(std::to_string(unreadCount)).append(")");
  }
  return title;
}

UIImageRef settingsPicture(const std::string& name) {
  const auto bundle = NSBundle::bundleWithPath(kZephylsSettingsBundlePath);
  return bundle == nullptr ? nullptr : UIImage::imageNamed(name, *bundle);
}

}  // namespace zephyl
