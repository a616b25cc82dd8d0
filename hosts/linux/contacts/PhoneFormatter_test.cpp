// How phone numbers are shown.

#include "hosts/linux/contacts/PhoneFormatter.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace zephyl::linux_host {
namespace {

TEST(PhoneFormatterTest, NumbersAreShownByTheRulesOfTheHomeRegion) {
  struct Case {
    const char* region;
    const char* text;
    const char* shown;
  };
  const std::vector<Case> cases = {
      {"US", "+15555550100", "+1 (555) 555-0100"},
      {"US", "5555550100", "(555) 555-0100"},
      {"US", "555-555-0100", "(555) 555-0100"},
      {"US", "15555550100", "(555) 555-0100"},
      {"US", "+447775446518", "+44 7775 446518"},
      {"GB", "+447775446518", "+44 7775 446518"},
      {"GB", "07775446518", "07775 446518"},
      {"GB", "+15555550100", "+1 555-555-0100"},
      {"US", "22000", "22000"},
      {"US", "555010", "555010"},
      {"US", "1-800-MY-APPLE", "1-800-MY-APPLE"},
      {"US", "ken.doh@icloud.com", "ken.doh@icloud.com"},
      {"US", "5550100@1234567", "5550100@1234567"},
      {"US", "*67 555-555-0100", "*67 555-555-0100"},
      {"US", "555-555-0100,,12", "555-555-0100,,12"},
      {"US", "555-555-0100 x12", "555-555-0100 x12"},
      {"US", "01144777544651", "01144777544651"},
      {"US", "+999999999999999", "+999999999999999"},
      {"US", "", ""},
      {"US", "\xFF\xFE", "\xFF\xFE"},
      {"US",
       "\xEF\xBC\x8B"
       "15555550100",
       "+1 (555) 555-0100"},
  };
  for (const Case& each : cases) {
    PhoneFormatter formatter(each.region);
    EXPECT_EQ(formatter.abCopyPhoneNumberFromString(each.text), each.shown) << each.text;
    // From memory.
    EXPECT_EQ(formatter.abCopyPhoneNumberFromString(each.text), each.shown) << each.text;
  }
}

TEST(PhoneFormatterTest, LongTextComesBackAsItIs) {
  PhoneFormatter formatter("US");
  const std::string text(100000, '5');
  EXPECT_EQ(formatter.abCopyPhoneNumberFromString(text), text);
}

}  // namespace
}  // namespace zephyl::linux_host
