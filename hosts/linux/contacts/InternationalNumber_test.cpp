#include "hosts/linux/contacts/InternationalNumber.h"

#include <gtest/gtest.h>

namespace zephyl::linux_host {
namespace {

TEST(InternationalNumberTest, ANumberOfTheHomeRegionGetsItsCountryCode) {
  for (const char* text : {"555-555-0100", "(555) 555 0100", "1 555 555 0100", "+1 555.555.0100"}) {
    EXPECT_EQ(internationalNumber(text, "US"), "+15555550100") << text;
  }
  EXPECT_EQ(internationalNumber("030 123456", "DE"), "+4930123456");
}

TEST(InternationalNumberTest, ANumberOfAnotherCountryKeepsItsCode) {
  EXPECT_EQ(internationalNumber("+49 30 123456", "US"), "+4930123456");
  EXPECT_EQ(internationalNumber("0049 30 123456", "DE"), "+4930123456");
}

TEST(InternationalNumberTest, WhatCannotBeDialledFromAbroadHasNone) {
  for (const char* text : {"22000", "555-0100", "", "Ann", "555-555-0100 ext. 5", "a1555@b.example",
                           "+99999999999999999999", "1-800-MY-APPLE"}) {
    EXPECT_EQ(internationalNumber(text, "US"), std::nullopt) << text;
  }
  EXPECT_EQ(internationalNumber(std::string(1000, '1'), "US"), std::nullopt);
}

}  // namespace
}  // namespace zephyl::linux_host
