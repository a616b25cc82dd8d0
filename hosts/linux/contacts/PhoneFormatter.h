// How phone numbers are shown: as on the phone, by the rules of the home region.
//
// Any thread. Answers are remembered, since finding one takes some 15 microseconds.

#pragma once

#include <optional>
#include <shared_mutex>
#include <string>
#include <unordered_map>
#include <utility>

#include "platform/addressbook/ABPhoneFormatting.h"

namespace zephyl::linux_host {

class PhoneFormatter final : public ABPhoneFormatting {
 public:
  // `homeRegion` as homeRegionFor() gives it: "US".
  explicit PhoneFormatter(std::string homeRegion) : homeRegion_(std::move(homeRegion)) {}

  // A number without a country code is written as at home ("(555) 555-0100"), one with the home
  // country code as that with the code before it ("+1 (555) 555-0100"), unless numbers are written
  // with another beginning at home; any other internationally.
  // Text with fewer than seven digits, with letters or with "@", pauses, extensions and service
  // codes, and what is no number come back as they are. Never nullopt.
  [[nodiscard]] std::optional<std::string> abCopyPhoneNumberFromString(
      const std::string& text) override;

 private:
  std::string homeRegion_;
  std::shared_mutex mutex_;
  std::unordered_map<std::string, std::string> known_;
};

}  // namespace zephyl::linux_host
