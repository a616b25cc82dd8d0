// A person of the address book as the device hands it out: a plain record, never changed after it
// was made, shared by reference and readable from any thread.
//
// Texts are UTF-8. An empty text means that the person has no such value.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zephyl {

// The bytes of a picture file (JPEG, PNG, ...); null when there is none.
using ABImageData = std::shared_ptr<const std::vector<std::uint8_t>>;

// Fetches a picture when it is wanted, so that a large address book is listed without its pictures
// in memory. Any thread, any number of times; null when the picture is missing or unreadable.
using ABImageLoader = std::function<ABImageData()>;

// One of several values of a kind. The label is raw: "_$!<Mobile>!$_" for those that the system
// translates, plain text for the user's own, empty for none.
struct ABLabeledText {
  std::string label;
  std::string value;
  friend bool operator==(const ABLabeledText&, const ABLabeledText&) = default;
};

struct ABAddress {
  std::string street;  // several lines are told apart by "\n"
  std::string city;
  std::string state;
  std::string zip;
  std::string country;
  std::string countryCode;  // ISO 3166, in the letters of the source: "us"
  friend bool operator==(const ABAddress&, const ABAddress&) = default;
};

struct ABSocialProfile {
  std::string service;  // as the source spells it: "twitter"
  std::string username;
  std::string userIdentifier;
  std::string url;
  friend bool operator==(const ABSocialProfile&, const ABSocialProfile&) = default;
};

struct ABPerson {
  // Positive and unique among the people of a device; 0 before one was given.
  std::int32_t recordID = 0;

  std::string firstName;
  std::string middleName;
  std::string lastName;
  std::string prefix;
  std::string suffix;
  std::string nickname;
  std::string organization;
  bool isCompany = false;

  // The name to show; nullopt (never empty) for a person without any name.
  std::optional<std::string> compositeName;

  std::vector<ABLabeledText> phones;
  std::vector<ABLabeledText> emails;
  std::vector<ABAddress> addresses;
  std::vector<ABSocialProfile> socialProfiles;

  // Seconds since 1970-01-01 00:00:00 UTC.
  std::optional<double> creationDate;
  std::optional<double> modificationDate;

  // The source's own lasting identifier; empty when it gives none.
  std::string guid;
  std::string sourceFile;

  // Empty functions when there is no picture. A person with one picture only has it in both.
  ABImageLoader thumbnailImage;
  ABImageLoader fullSizeImage;
};

using ABPersonRef = std::shared_ptr<const ABPerson>;

}  // namespace zephyl
