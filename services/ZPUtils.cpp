#include "services/ZPUtils.h"

#include <utility>

#include "platform/Host.h"
#include "platform/Once.h"
#include "platform/addressbook/ABPhoneFormatting.h"
#include "platform/foundation/Dispatch.h"
#include "platform/foundation/NSBundle.h"
#include "platform/foundation/Value.h"
#include "platform/uikit/UIDevice.h"

#include "model/ZPSettings.h"

namespace zephyl {

namespace {

// Single precision on both sides: version 8.3 is at least 8.3 only so.
bool isAtLeast(float version) {
  return Value(host().device().systemVersion()).floatValue() >= version;
}

}  // namespace

bool ZPUtils::isIOS8() {
  return isAtLeast(8.0F);
}
bool ZPUtils::isIOS8_3() {
  return isAtLeast(8.3F);
}
bool ZPUtils::isIOS9() {
  return isAtLeast(9.0F);
}
bool ZPUtils::isIOS10() {
  return isAtLeast(10.0F);
}
bool ZPUtils::isIOS11() {
  return isAtLeast(11.0F);
}
bool ZPUtils::isIOS12() {
  return isAtLeast(12.0F);
}
bool ZPUtils::isIOS13() {
  return isAtLeast(13.0F);
}
bool ZPUtils::isIOS14() {
  return isAtLeast(14.0F);
}

std::shared_ptr<LAContext> ZPUtils::context() {
  static Once<LAContext> shared;
  return shared.get([] { return host().makeLAContext(); });
}

bool ZPUtils::supportsTouchID() {
  bool supported = false;
  const auto ask = [&] {
    supported = context()->canEvaluatePolicy(LAPolicy::kDeviceOwnerAuthenticationWithBiometrics,
                                             /*error=*/nullptr);
  };
  if (isIOS12() && !host().dispatch().isMainThread()) {
    host().dispatch().mainSync(ask);
  } else {
    ask();
  }
  return supported;
}

std::string ZPUtils::chatKitLocalizedString(const std::string& key) {
  return NSBundle::ckFrameworkBundle()->localizedStringForKey(key, std::nullopt, "ChatKit");
}

std::optional<std::string> ZPUtils::chatKitLocalizedStringWithKeys(
    const std::vector<std::string>& keys) {
  std::optional<std::string> text;
  for (const std::string& key : keys) {
    text = chatKitLocalizedString(key);
    if (*text != key) {
      break;
    }
  }
  return text;
}

std::optional<std::string> ZPUtils::formattedPhoneNumber(const std::string& text) {
  return host().phoneFormatting().abCopyPhoneNumberFromString(text);
}

std::string ZPUtils::plainPhoneNumber(const std::string& text) {
  std::string plain;
  plain.reserve(text.size());
  for (const char c : text) {
    if (c != ' ' && c != '(' && c != ')' && c != '-') {
      plain.push_back(c);
    }
  }
  return plain;
}

std::int64_t ZPUtils::contactIDFromPhoneNumber(const std::string& /*plainNumber*/,
                                               const ABAddressBookRef& /*addressBook*/) {
  return -1;
}

bool ZPUtils::isZephylsEnabled() {
  return ZPSettings::sharedSettings()->isZephylsEnabled();
}

std::string ZPUtils::settingsFilePath() {
  return std::string("/var/mobile/Library/Preferences/") + "com.vantor.zephyls.plist";
}

}  // namespace zephyl
