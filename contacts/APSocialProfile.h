// A person's account at a social network. A value; a text that is empty is not there.

#pragma once

#include <string>

#include "platform/Export.h"
#include "platform/addressbook/ABPerson.h"

namespace zephyl {

enum class APSocialNetworkType { kUnknown = 0, kFacebook = 1, kTwitter = 2, kLinkedIn = 3 };

struct APSocialProfile {
  APSocialNetworkType socialNetwork = APSocialNetworkType::kUnknown;
  std::string username;
  std::string userIdentifier;
  std::string url;

  // The service is told by its exact name: "twitter", and not "Twitter".
  [[nodiscard]] ZP_EXPORT static APSocialProfile initWithSocialDictionary(
      const ABSocialProfile& profile);

  friend bool operator==(const APSocialProfile&, const APSocialProfile&) = default;
};

}  // namespace zephyl
