// What the program makes of texts, values and times before it prints them.

#include <cstdlib>
#include <limits>
#include <sstream>
#include <string>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "platform/foundation/Dictionary.h"

#include "apps/zephyls/Json.h"
#include "apps/zephyls/Output.h"
#include "apps/zephyls/SessionLog.h"
#include "apps/zephyls/TextWidth.h"

namespace zephyl::app {
namespace {

struct Wide {
  const char* text;
  std::size_t width;
};

TEST(TextWidthTest, ACharacterAsTheReaderSeesItTakesOneOrTwoColumns) {
  for (const Wide& one : {Wide{"", 0},
                          {"abc", 3},
                          {"Zoë", 3},
                          {"Zoe\u0308", 3},
                          {"山田", 4},
                          {"한국", 4},
                          {"שלום", 4},
                          {"🎶", 2},
                          {"❤\uFE0F", 2},
                          {"👩\u200D🚀", 2},
                          {"●", 1}}) {
    EXPECT_EQ(textWidth(one.text), one.width) << one.text;
  }
}

TEST(TextWidthTest, TextIsCutBetweenCharactersOnly) {
  EXPECT_EQ(cutToWidth("abcdef", 6), "abcdef");
  EXPECT_EQ(cutToWidth("abcdef", 4), "abc…");
  EXPECT_EQ(cutToWidth("山田太郎", 4), "山…");
  EXPECT_EQ(cutToWidth("Zoe\u0308 is", 4), "Zoe\u0308…");
  EXPECT_EQ(cutToWidth("abc", 1), "…");
  EXPECT_EQ(cutToWidth("abc", 0), "");
}

TEST(TextWidthTest, WhatCouldSteerATerminalIsReplaced) {
  EXPECT_EQ(safeForTerminal("plain Zoë 山田 👩\u200D🚀"), "plain Zoë 山田 👩\u200D🚀");
  EXPECT_EQ(safeForTerminal("a\033[31mb"), "a\uFFFD[31mb");
  EXPECT_EQ(safeForTerminal("a\nb\tc\r"), "a b c\uFFFD");
  EXPECT_EQ(safeForTerminal("a\u009b\u202e\u2066b"), "a\uFFFD\uFFFD\uFFFDb");
  EXPECT_EQ(safeForTerminal("a\u2028b"), "a b");
  EXPECT_EQ(safeForTerminal("a\xff"), "a\uFFFD");
}

TEST(OutputTest, ColumnsAreAsWideAsTheirWidestCell) {
  std::ostringstream out;
  std::ostringstream errors;
  Output output(out, errors, /*json=*/false);
  output.table({{{"山"}, {"b"}, {""}}, {{"abc"}, {""}, {"c"}}, {}});
  EXPECT_EQ(out.str(), "山   b\nabc     c\n\n");
  output.complain("bad\nthing");
  EXPECT_EQ(errors.str(), "zephyls: bad thing\n");
}

TEST(JsonTest, EveryTypeHasItsForm) {
  const Dictionary all{{"null", Value()},
                       {"yes", true},
                       {"integer", std::numeric_limits<std::int64_t>::min()},
                       {"unsigned", Value::ofUnsigned(std::numeric_limits<std::uint64_t>::max())},
                       {"real", 1.5},
                       {"infinite", std::numeric_limits<double>::infinity()},
                       {"date", Date{0.25}},
                       {"uid", Uid{3}},
                       {"text", "Zoë"},
                       {"data", Array{Data{}, Data{1}, Data{1, 2}, Data{1, 2, 3}}},
                       {"array", Array{1, Dictionary{{"a", 2}}}}};
  EXPECT_EQ(jsonOf(all).dump(),
            "{\"null\":null,\"yes\":true,\"integer\":-9223372036854775808,"
            "\"unsigned\":18446744073709551615,\"real\":1.5,\"infinite\":null,"
            "\"date\":\"2001-01-01T00:00:00.25Z\",\"uid\":{\"CF$UID\":3},\"text\":\"Zoë\","
            "\"data\":[\"\",\"AQ==\",\"AQI=\",\"AQID\"],\"array\":[1,{\"a\":2}]}");
}

TEST(JsonTest, TimesAreInUtc) {
  EXPECT_EQ(isoTime(0), "1970-01-01T00:00:00Z");
  EXPECT_EQ(isoTime(-0.5), "1969-12-31T23:59:59.5Z");
  EXPECT_EQ(isoTime(1e9), "2001-09-09T01:46:40Z");
  EXPECT_EQ(isoTime(1.9999999), "1970-01-01T00:00:02Z");
}

TEST(SessionLogTest, EachThingIsToldOnceUnderTheNameOnThisMachine) {
  std::string told;
  SessionLog log("/home/x/device", [&](const std::string& message) { told += message + "\n"; });
  log.log("/var/mobile/a.plist: line 1: bad");
  log.log("/var/mobile/a.plist: line 1: bad");
  log.log("/home/x/device/var/mobile/b: worse");
  log.log("com.vantor.Zephyls: Error => read(path), [Line 12], elsewhere");
  EXPECT_EQ(told,
            "/home/x/device/var/mobile/a.plist: line 1: bad\n"
            "/home/x/device/var/mobile/b: worse\nelsewhere\n");
}

}  // namespace
}  // namespace zephyl::app
