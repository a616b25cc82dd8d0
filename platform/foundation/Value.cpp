#include "platform/foundation/Value.h"

#include <cmath>
#include <cstdlib>
#include <limits>
#include <string_view>

#include "platform/foundation/Dictionary.h"

namespace zephyl {

namespace {

constexpr double kReferenceDateSince1970 = 978307200.0;

std::string_view withoutLeadingSpace(std::string_view text) {
  const std::size_t start = text.find_first_not_of(" \t\n\r\f\v");
  return start == std::string_view::npos ? std::string_view() : text.substr(start);
}

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

std::int64_t clampedInteger(double value) {
  if (std::isnan(value)) {
    return 0;
  }
  if (value >= 9223372036854775808.0) {
    return std::numeric_limits<std::int64_t>::max();
  }
  if (value < -9223372036854775808.0) {
    return std::numeric_limits<std::int64_t>::min();
  }
  return static_cast<std::int64_t>(value);
}

std::int64_t leadingInteger(std::string_view text) {
  text = withoutLeadingSpace(text);
  const bool negative = !text.empty() && text.front() == '-';
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
    text.remove_prefix(1);
  }
  constexpr auto kMax = std::numeric_limits<std::int64_t>::max();
  std::int64_t value = 0;
  while (!text.empty() && isDigit(text.front())) {
    const std::int64_t digit = text.front() - '0';
    if (value > (kMax - digit) / 10) {
      return negative ? std::numeric_limits<std::int64_t>::min() : kMax;
    }
    value = value * 10 + digit;
    text.remove_prefix(1);
  }
  return negative ? -value : value;
}

// The longest leading part that is a decimal number, so that no "inf", "nan" or hexadecimal gets
// through to the converter, whatever the locale.
double leadingReal(std::string_view text) {
  text = withoutLeadingSpace(text);
  std::size_t end = 0;
  const auto digits = [&] {
    const std::size_t from = end;
    while (end < text.size() && isDigit(text[end])) {
      ++end;
    }
    return end > from;
  };
  if (end < text.size() && (text[end] == '-' || text[end] == '+')) {
    ++end;
  }
  bool any = digits();
  if (end < text.size() && text[end] == '.') {
    ++end;
    any = digits() || any;
  }
  if (!any) {
    return 0.0;
  }
  const std::size_t mantissa = end;
  if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
    ++end;
    if (end < text.size() && (text[end] == '-' || text[end] == '+')) {
      ++end;
    }
    if (!digits()) {
      end = mantissa;
    }
  }
  return std::strtod(std::string(text.substr(0, end)).c_str(), nullptr);
}

bool leadingBoolean(std::string_view text) {
  text = withoutLeadingSpace(text);
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
    text.remove_prefix(1);
  }
  const std::size_t start = text.find_first_not_of('0');
  if (start == std::string_view::npos) {
    return false;
  }
  return std::string_view("YyTt123456789").find(text[start]) != std::string_view::npos;
}

}  // namespace

Date Date::since1970(double seconds) {
  return Date{seconds - kReferenceDateSince1970};
}

double Date::secondsSince1970() const {
  return secondsSinceReferenceDate + kReferenceDateSince1970;
}

Value::Value(const char* text) : Value(std::string(text)) {}
Value::Value(std::string text) : storage_(std::make_shared<const std::string>(std::move(text))) {}
Value::Value(Data bytes) : storage_(std::make_shared<const Data>(std::move(bytes))) {}
Value::Value(Array elements) : storage_(std::make_shared<const Array>(std::move(elements))) {}
Value::Value(Dictionary entries)
    : storage_(std::make_shared<const Dictionary>(std::move(entries))) {}

Value Value::ofUnsigned(std::uint64_t value) {
  if (value <= static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {
    return Value(static_cast<std::int64_t>(value));
  }
  Value result;
  result.storage_ = value;
  return result;
}

bool Value::boolValue() const {
  switch (type()) {
    case Type::kBoolean:
      return *ifBoolean();
    case Type::kInteger:
      return *ifInteger() != 0;
    case Type::kUnsigned:
      return true;
    case Type::kReal:
      return *ifReal() != 0.0;
    case Type::kString:
      return leadingBoolean(*ifString());
    default:
      return false;
  }
}

std::int64_t Value::integerValue() const {
  switch (type()) {
    case Type::kBoolean:
      return *ifBoolean() ? 1 : 0;
    case Type::kInteger:
      return *ifInteger();
    case Type::kUnsigned:
      return static_cast<std::int64_t>(*ifUnsigned());
    case Type::kReal:
      return clampedInteger(*ifReal());
    case Type::kString:
      return leadingInteger(*ifString());
    default:
      return 0;
  }
}

double Value::doubleValue() const {
  switch (type()) {
    case Type::kBoolean:
      return *ifBoolean() ? 1.0 : 0.0;
    case Type::kInteger:
      return static_cast<double>(*ifInteger());
    case Type::kUnsigned:
      return static_cast<double>(*ifUnsigned());
    case Type::kReal:
      return *ifReal();
    case Type::kString:
      return leadingReal(*ifString());
    default:
      return 0.0;
  }
}

float Value::floatValue() const {
  const double value = doubleValue();
  constexpr double kMax = std::numeric_limits<float>::max();
  if (value > kMax || value < -kMax) {
    return value > 0 ? std::numeric_limits<float>::infinity()
                     : -std::numeric_limits<float>::infinity();
  }
  return static_cast<float>(value);
}

bool operator==(const Value& left, const Value& right) {
  if (left.type() != right.type()) {
    return false;
  }
  switch (left.type()) {
    case Value::Type::kString:
      return *left.ifString() == *right.ifString();
    case Value::Type::kData:
      return *left.ifData() == *right.ifData();
    case Value::Type::kArray:
      return left.ifArray() == right.ifArray() || *left.ifArray() == *right.ifArray();
    case Value::Type::kDictionary:
      return left.ifDictionary() == right.ifDictionary() ||
             *left.ifDictionary() == *right.ifDictionary();
    default:
      return left.storage_ == right.storage_;
  }
}

}  // namespace zephyl
