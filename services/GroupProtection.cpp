#include "services/GroupProtection.h"

#include <cstddef>
#include <cstdint>

#include "model/ZPLocalizedText.h"

namespace zephyl {

namespace {

// As the phone numbers them.
constexpr std::int64_t kCancelledByUser = -2;
constexpr std::int64_t kCancelledBySystem = -4;

}  // namespace

std::string joinedTitles(const std::vector<std::string>& titles) {
  std::string result;
  for (std::size_t index = 0; index < titles.size(); ++index) {
    if (index > 0) {
      result += index + 1 == titles.size() ? " and " : ", ";
    }
    result += titles[index];
  }
  return result;
}

// Kept: "uisng", here and below.
std::string reasonToOpenGroup(const std::string& title) {
  return zpFilledText(
      zpLocalizedText("Group '%@' is protected. Please authenticate uisng your finger print."),
      {title});
}

std::string reasonToDeleteGroups(const std::vector<std::string>& titles) {
  const bool one = titles.size() == 1;
  return zpFilledText(
      zpLocalizedText("%@ '%@' %@ protected. Please authenticate uisng your finger print."),
      {zpLocalizedText(one ? "Group" : "Groups"), joinedTitles(titles),
       zpLocalizedText(one ? "is" : "are")});
}

std::string reasonToAddToGroups() {
  return zpLocalizedText("Few groups are protected. Please authenticate uisng your finger print.");
}

std::optional<std::string> whyNotRecognized(const NSError* error) {
  if (error == nullptr) {
    return zpLocalizedText("Unable to verify your identity.");
  }
  if (error->code() == kCancelledByUser || error->code() == kCancelledBySystem) {
    return std::nullopt;
  }
  return zpFilledText(zpLocalizedText("Unable to verify your identity. Error: '%@'"),
                      {error->localizedDescription()});
}

}  // namespace zephyl
