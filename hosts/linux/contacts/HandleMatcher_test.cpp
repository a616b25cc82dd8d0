// Whom a handle belongs to.

#include "hosts/linux/contacts/HandleMatcher.h"

#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/linux/contacts/DialledDigits.h"
#include "hosts/linux/contacts/HomeRegion.h"

namespace zephyl::linux_host {
namespace {

using Strings = std::vector<std::string>;

ABPersonRef person(std::int32_t id, const Strings& phones, const Strings& emails = {}) {
  ABPerson person;
  person.recordID = id;
  for (const std::string& phone : phones) {
    person.phones.push_back({"", phone});
  }
  for (const std::string& email : emails) {
    person.emails.push_back({"", email});
  }
  return std::make_shared<const ABPerson>(std::move(person));
}

// The record id of who is found; 0 for nobody.
std::int32_t found(const HandleMatcher& matcher, const std::string& handle) {
  const ABPersonRef person = matcher.personForHandle(handle);
  return person ? person->recordID : 0;
}

TEST(HandleMatcherTest, NumbersMatchInAnyFormattingWithAndWithoutCountryCode) {
  struct Case {
    std::string region;
    std::string stored;
    std::string handle;
    bool matches;
  };
  const std::vector<Case> cases = {
      {"US", "(555) 555-0100", "+15555550100", true},
      {"US", "555.555.0100", "+15555550100", true},
      {"US", "1-555-555-0100", "+15555550100", true},
      {"US", "+1 555 555 0100", "5555550100", true},
      {"US", "011 44 7775 446518", "+447775446518", true},
      {"US", "555-0100", "+15555550100", true},
      {"US", "15555550100", "+15555550100", true},
      {"GB", "15555550100", "+15555550100", true},
      {"GB", "07775 446518", "+447775446518", true},
      {"US", "07775 446518", "+447775446518", false},
      {"GB", "(555) 555-0100", "+15555550100", false},
      {"DE", "0351 2233445", "+493512233445", true},
      {"DE", "+49 (0)351 2233445", "+493512233445", true},
      {"US", "+1 555 555 0100", "+1 444 555 0100", false},
      {"US", "+1 555 555 0100", "+44 555 555 0100", false},
      {"US", "1-800-MY-APPLE", "+18006927753", true},
      {"US", "555-555-0100 ext. 12", "+15555550100", true},
      {"US", "555-555-0100,,12#", "+15555550100", true},
      {"US", "+1-555-555-0100;ext=102", "+15555550100", true},
      {"US", "Home 555-555-0100", "+15555550100", true},
      {"US",
       "\xE2\x80\xAA+1\xC2\xA0(555) 555\xE2\x80\x91"
       "0100\xE2\x80\xAC",
       "+15555550100", true},
      {"EG",
       "\xD9\xA0\xD9\xA1\xD9\xA0\xD9\xA1\xD9\xA2\xD9\xA3\xD9\xA4\xD9\xA5\xD9\xA6\xD9\xA7\xD9\xA8",
       "+201012345678", true},
      {"US", "5555550100", "5550100@example.com", false},
  };
  for (const Case& each : cases) {
    const HandleMatcher matcher({person(1, {each.stored})}, each.region);
    EXPECT_EQ(found(matcher, each.handle), each.matches ? 1 : 0)
        << each.stored << " asked for " << each.handle << " in " << each.region;
  }
}

TEST(HandleMatcherTest, TheFirstPersonInTheSystemsOrderWins) {
  const HandleMatcher matcher(
      {person(9, {"444-555-0100"}), person(8, {"x", "(555) 555-0100"}, {"A@b.example"}),
       person(7, {"+15555550100"}, {"a@b.example"}), person(6, {"22000"}), person(5, {"22000"})},
      "US");
  EXPECT_EQ(found(matcher, "+15555550100"), 8);
  EXPECT_EQ(found(matcher, "+14445550100"), 9);
  EXPECT_EQ(found(matcher, "a@b.example"), 8);
  EXPECT_EQ(found(matcher, "22000"), 6);
  EXPECT_EQ(found(matcher, "+16665550100"), 0);
}

TEST(HandleMatcherTest, MailAddressesAreComparedWithoutRegardToCase) {
  const HandleMatcher matcher({person(1, {}, {"Alex@Example.COM", " J\xC3\x96RG@Example.de "}),
                               person(2, {"five@phone.example"})},
                              "US");
  EXPECT_EQ(found(matcher, "alex@example.com"), 1);
  EXPECT_EQ(found(matcher, "ALEX@EXAMPLE.COM"), 1);
  EXPECT_EQ(found(matcher, "j\xC3\xB6rg@example.de"), 1);
  EXPECT_EQ(found(matcher, "Five@phone.example"), 2);
  EXPECT_EQ(found(matcher, "alex@example.co"), 0);
}

TEST(HandleMatcherTest, ShortNumbersAndNamesMatchOnlyThemselves) {
  const HandleMatcher matcher({person(1, {"220-00"}), person(2, {"1220000"}), person(3, {"AMAZON"}),
                               person(4, {"*100#"}), person(5, {"O2"}), person(6, {"2"})},
                              "US");
  EXPECT_EQ(found(matcher, "22000"), 1);
  EXPECT_EQ(found(matcher, "220000"), 0);
  EXPECT_EQ(found(matcher, "2200"), 0);
  EXPECT_EQ(found(matcher, "+22000"), 0);
  EXPECT_EQ(found(matcher, "Amazon"), 3);
  EXPECT_EQ(found(matcher, "*100#"), 4);
  EXPECT_EQ(found(matcher, "100"), 0);
  EXPECT_EQ(found(matcher, "o2"), 5);
  EXPECT_EQ(found(matcher, "2"), 6);
}

TEST(HandleMatcherTest, NothingMatchesNobody) {
  const HandleMatcher matcher({person(1, {"", " "}, {""})}, "US");
  for (const char* handle : {"", " ", "+", "\xFF", "urn:biz:1", "+15555550100"}) {
    EXPECT_EQ(found(matcher, handle), 0) << handle;
  }
  EXPECT_EQ(found(HandleMatcher({}, "US"), "+15555550100"), 0);
}

TEST(HandleMatcherTest, ManyThreadsMayAsk) {
  std::vector<ABPersonRef> people;
  people.reserve(1000);
  for (std::int32_t id = 0; id < 1000; ++id) {
    people.push_back(person(
        id + 1, {"+1 555 " + std::to_string(100 + id % 10) + " " + std::to_string(1000 + id)}));
  }
  const HandleMatcher matcher(people, "US");
  std::vector<std::thread> threads;
  std::vector<int> hits(4);
  threads.reserve(hits.size());
  for (int& count : hits) {
    threads.emplace_back([&matcher, &count] {
      for (std::int32_t id = 0; id < 1000; id += 7) {
        const std::string handle =
            "+1555" + std::to_string(100 + id % 10) + std::to_string(1000 + id);
        count += found(matcher, handle) == id + 1 ? 1 : 0;
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(hits, std::vector<int>(4, 143));
}

TEST(DialledDigitsTest, WhatIsDialledAfterTheNumberIsNoPartOfIt) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"+1 (555) 555-0100", "15555550100"},
      {"555-0100 x12", "5550100"},
      {"555-0100 Ext 12", "5550100"},
      {"555-0100,12", "5550100"},
      {"555-0100;ext=12", "5550100"},
      {"555-0100#12", "5550100"},
      {"1-800-FLOWERS", "18003569377"},
      {"*#06#", "06"},
      {"none", ""},
      {"\xEF\xBC\x95\xEF\xBC\x95", "55"},
      {"\xFF"
       "5\xC3",
       "5"},
  };
  for (const auto& [text, digits] : cases) {
    EXPECT_EQ(dialledDigits(text), digits) << text;
  }
  EXPECT_EQ(endingOf("15555550100"), 5550100U);
  EXPECT_EQ(endingOf("0000001"), 1U);
  EXPECT_EQ(endingOf("555010"), std::nullopt);
}

TEST(HomeRegionTest, TheRegionIsThatOfTheLocale) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"de_AT.UTF-8", "AT"}, {"en-GB", "GB"},     {"zh_Hant_TW", "TW"}, {"de_DE@euro", "DE"},
      {"C", "US"},           {"C.UTF-8", "US"},   {"", "US"},           {"de", "US"},
      {"en_001", "US"},      {"\xFF_\xFF", "US"},
  };
  for (const auto& [locale, region] : cases) {
    EXPECT_EQ(homeRegionFor(locale), region) << locale;
  }
}

}  // namespace
}  // namespace zephyl::linux_host
