#include "platform/foundation/Value.h"

#include <limits>

#include <gtest/gtest.h>

#include "platform/foundation/Dictionary.h"

namespace zephyl {
namespace {

TEST(ValueTest, KeepsBooleansIntegersAndRealsApart) {
  EXPECT_EQ(Value(true).type(), Value::Type::kBoolean);
  EXPECT_EQ(Value(1).type(), Value::Type::kInteger);
  EXPECT_EQ(Value(1.0).type(), Value::Type::kReal);
  EXPECT_FALSE(Value(true) == Value(1));
  EXPECT_FALSE(Value(1) == Value(1.0));
}

TEST(ValueTest, UnsignedHoldsOnlyWhatDoesNotFitASignedInteger) {
  EXPECT_EQ(Value::ofUnsigned(7).type(), Value::Type::kInteger);
  const Value big = Value::ofUnsigned(std::numeric_limits<std::uint64_t>::max());
  EXPECT_EQ(big.type(), Value::Type::kUnsigned);
  EXPECT_EQ(big.integerValue(), -1);
  EXPECT_TRUE(big.boolValue());
}

TEST(ValueTest, TextConvertsByItsLeadingNumber) {
  EXPECT_EQ(Value("42").integerValue(), 42);
  EXPECT_EQ(Value("  -7x").integerValue(), -7);
  EXPECT_EQ(Value("+15550100").integerValue(), 15550100);
  EXPECT_EQ(Value("Work").integerValue(), 0);
  EXPECT_EQ(Value("99999999999999999999").integerValue(), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(Value("-99999999999999999999").integerValue(),
            std::numeric_limits<std::int64_t>::min());
  EXPECT_DOUBLE_EQ(Value(" 2.5e1 minutes").doubleValue(), 25.0);
  EXPECT_DOUBLE_EQ(Value("3e").doubleValue(), 3.0);
  EXPECT_DOUBLE_EQ(Value("infinity").doubleValue(), 0.0);
  EXPECT_DOUBLE_EQ(Value("0x10").doubleValue(), 0.0);
}

TEST(ValueTest, TextIsTrueByItsFirstLetterOrANumberOtherThanZero) {
  for (const char* text : {"YES", "y", "true", "T", "1", "007", " 1", "-1"}) {
    EXPECT_TRUE(Value(text).boolValue()) << text;
  }
  for (const char* text : {"", "NO", "false", "0", "000", "zero", "-0"}) {
    EXPECT_FALSE(Value(text).boolValue()) << text;
  }
}

TEST(ValueTest, RealsAreCutTowardZeroAndClamped) {
  EXPECT_EQ(Value(-2.9).integerValue(), -2);
  EXPECT_EQ(Value(1e300).integerValue(), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(Value(-1e300).integerValue(), std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(Value(std::numeric_limits<double>::quiet_NaN()).integerValue(), 0);
}

TEST(ValueTest, OtherTypesConvertToZero) {
  for (const Value& value : {Value(), Value(Date{5}), Value(Data{1}), Value(Array{Value(1)}),
                             Value(Dictionary{{"a", 1}}), Value(Uid{4})}) {
    EXPECT_FALSE(value.boolValue());
    EXPECT_EQ(value.integerValue(), 0);
    EXPECT_EQ(value.doubleValue(), 0.0);
  }
}

TEST(ValueTest, SinglePrecisionWidensAsThePhoneDoes) {
  EXPECT_EQ(static_cast<double>(Value(0.1).floatValue()), 0.10000000149011612);
  EXPECT_EQ(Value(1e300).floatValue(), std::numeric_limits<float>::infinity());
}

TEST(ValueTest, DatesCountFrom2001) {
  EXPECT_EQ(Date::since1970(978307200.0), Date{0.0});
  EXPECT_EQ(Date{1.5}.secondsSince1970(), 978307201.5);
}

TEST(DictionaryTest, KeepsTheOrderInWhichKeysWereFirstSet) {
  Dictionary dictionary{{"b", 1}, {"a", 2}};
  dictionary.set("c", 3);
  dictionary.set("b", 4);
  std::string keys;
  for (const auto& [key, value] : dictionary) {
    keys += key;
  }
  EXPECT_EQ(keys, "bac");
  EXPECT_EQ(dictionary["b"], Value(4));
  EXPECT_TRUE(dictionary["missing"].isNull());
}

TEST(DictionaryTest, FindsKeysOnBothSidesOfItsIndex) {
  Dictionary dictionary;
  for (int i = 0; i < 100; ++i) {
    dictionary.set(std::to_string(i), i);
  }
  dictionary.set("50", "again");
  dictionary.remove("10");
  EXPECT_EQ(dictionary.size(), 99u);
  EXPECT_EQ(dictionary.find("10"), nullptr);
  EXPECT_EQ(dictionary["50"], Value("again"));
  EXPECT_EQ(dictionary["99"], Value(99));
}

}  // namespace
}  // namespace zephyl
