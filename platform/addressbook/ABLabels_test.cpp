// What labels are called.

#include "platform/addressbook/ABLabels.h"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

class LabelsTest : public ::testing::Test {
 protected:
  fake::Device device_;
};

TEST_F(LabelsTest, EveryLabelOfTheSystemIsCalledAsTheTableSays) {
  const std::vector<std::pair<std::string, std::string>> labels = {
      {"Mobile", "mobile"},    {"Home", "home"},          {"Work", "work"},
      {"School", "school"},    {"Main", "main"},          {"HomeFAX", "home fax"},
      {"WorkFAX", "work fax"}, {"OtherFAX", "other fax"}, {"Pager", "pager"},
      {"Other", "other"},      {"HomePage", "homepage"},  {"Anniversary", "anniversary"},
      {"Car", "car"},          {"Radio", "radio"},        {"Assistant", "assistant"},
  };
  for (const auto& [raw, key] : labels) {
    EXPECT_EQ(ABAddressBookCopyLocalizedLabel("_$!<" + raw + ">!$_"), key);
  }
  std::string table;
  for (const auto& [raw, key] : labels) {
    table.append("\"").append(key).append("\" = \"de ").append(key).append("\";\n");
  }
  device_.files().put("/System/Library/Frameworks/UIKit.framework/de.lproj/UIKit.strings", table);
  device_.processInfo().setPreferredLanguages({"de"});
  for (const auto& [raw, key] : labels) {
    EXPECT_EQ(ABAddressBookCopyLocalizedLabel("_$!<" + raw + ">!$_"), "de " + key);
  }
}

TEST_F(LabelsTest, ALabelOfTheSystemThatIsNotKnownIsShownWithoutItsMarks) {
  EXPECT_EQ(ABAddressBookCopyLocalizedLabel("_$!<Boat>!$_"), "Boat");
  EXPECT_EQ(ABAddressBookCopyLocalizedLabel("_$!<mobile>!$_"), "mobile");
  EXPECT_EQ(ABAddressBookCopyLocalizedLabel("_$!<>!$_"), "");
}

TEST_F(LabelsTest, ALabelOfTheUsersOwnStaysAsItIs) {
  for (const char* label : {"", "Boat", "Mobile", "_$!<Mobile", "Mobile>!$_", "_$!<>!$",
                            "x_$!<Mobile>!$_", "_$!<!$_"}) {
    EXPECT_EQ(ABAddressBookCopyLocalizedLabel(label), label);
  }
}

}  // namespace
}  // namespace zephyl
