#include "contacts/APSocialProfile.h"

namespace zephyl {

namespace {

APSocialNetworkType networkOf(const std::string& service) {
  if (service == "facebook") {
    return APSocialNetworkType::kFacebook;
  }
  if (service == "twitter") {
    return APSocialNetworkType::kTwitter;
  }
  if (service == "linkedin") {
    return APSocialNetworkType::kLinkedIn;
  }
  return APSocialNetworkType::kUnknown;
}

}  // namespace

APSocialProfile APSocialProfile::initWithSocialDictionary(const ABSocialProfile& profile) {
  return {networkOf(profile.service), profile.username, profile.userIdentifier, profile.url};
}

}  // namespace zephyl
