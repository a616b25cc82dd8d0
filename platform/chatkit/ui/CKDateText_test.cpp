// When the last message came, as lists say it.

#include "platform/chatkit/ui/CKDateText.h"

#include <ctime>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

class DateText : public ::testing::Test {
 protected:
  // By this machine's clock, wherever it stands.
  static double local(int year, int month, int day, int hour, int minute) {
    std::tm parts{};
    parts.tm_year = year - 1900;
    parts.tm_mon = month - 1;
    parts.tm_mday = day;
    parts.tm_hour = hour;
    parts.tm_min = minute;
    parts.tm_isdst = -1;
    return static_cast<double>(std::mktime(&parts));
  }
  void putTexts(const std::string& texts) {
    device_.files().put(
        "/System/Library/PrivateFrameworks/ChatKit.framework/en.lproj/ChatKit.strings", texts);
  }

  fake::Device device_;
  // A Wednesday.
  const double now_ = local(2026, 3, 4, 15, 30);
};

TEST_F(DateText, TodayIsATime) {
  EXPECT_EQ(conversationDateText(local(2026, 3, 4, 0, 5), now_), "00:05");
  EXPECT_EQ(conversationDateText(local(2026, 3, 4, 23, 59), now_), "23:59");
}

TEST_F(DateText, YesterdayIsSaidSoAcrossMonths) {
  EXPECT_EQ(conversationDateText(local(2026, 3, 3, 0, 0), now_), "Yesterday");
  const double firstOfMarch = local(2024, 3, 1, 0, 1);
  EXPECT_EQ(conversationDateText(local(2024, 2, 29, 23, 59), firstOfMarch), "Yesterday");
  EXPECT_EQ(conversationDateText(local(2025, 12, 31, 12, 0), local(2026, 1, 1, 1, 0)), "Yesterday");
}

TEST_F(DateText, TheLastWeekIsADay) {
  EXPECT_EQ(conversationDateText(local(2026, 3, 2, 8, 0), now_), "Monday");
  EXPECT_EQ(conversationDateText(local(2026, 2, 26, 8, 0), now_), "Thursday");
}

TEST_F(DateText, WhatIsOlderOrToComeIsADate) {
  EXPECT_EQ(conversationDateText(local(2026, 2, 25, 23, 59), now_), "2026-02-25");
  EXPECT_EQ(conversationDateText(local(2026, 3, 5, 0, 0), now_), "2026-03-05");
}

TEST_F(DateText, TheLanguageSaysHow) {
  putTexts(
      "\"SHORT_TIME_FORMAT\" = \"h:mm a\"; \"SHORT_DATE_FORMAT\" = \"d.M.yy\"; \"PM\" = \"p.m.\"; "
      "\"Yesterday\" = \"the day before\"; \"Monday\" = \"Moonday\";");
  EXPECT_EQ(conversationDateText(local(2026, 3, 4, 0, 5), now_), "12:05 AM");
  EXPECT_EQ(conversationDateText(local(2026, 3, 4, 13, 5), now_), "1:05 p.m.");
  EXPECT_EQ(conversationDateText(local(2026, 3, 3, 13, 5), now_), "the day before");
  EXPECT_EQ(conversationDateText(local(2026, 3, 2, 13, 5), now_), "Moonday");
  EXPECT_EQ(conversationDateText(local(2009, 3, 2, 13, 5), now_), "2.3.09");
}

TEST_F(DateText, WhatIsNoTimeIsNothing) {
  for (const double none : {std::numeric_limits<double>::quiet_NaN(),
                            std::numeric_limits<double>::infinity(), 1e300, -1e300}) {
    EXPECT_EQ(conversationDateText(none, now_), "");
    EXPECT_EQ(conversationDateText(now_, none), "");
  }
}

}  // namespace
}  // namespace zephyl
