// A property-list value: nothing, a boolean, an integer, a real, a date, a text, bytes, an array, a
// dictionary or the reference of a keyed archive. 64-bit integers, reals and booleans stay apart.
//
// Values are immutable; a copy shares what is inside and costs no more than a counter. Any thread
// may read one.

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "platform/Export.h"

namespace zephyl {

class Dictionary;
class Value;

using Data = std::vector<std::uint8_t>;
using Array = std::vector<Value>;

// A point in time: seconds since 2001-01-01 00:00:00 UTC, fractions allowed, never NaN or infinite
// when it comes out of a reader.
struct ZP_EXPORT Date {
  double secondsSinceReferenceDate = 0.0;

  [[nodiscard]] static Date since1970(double seconds);
  [[nodiscard]] double secondsSince1970() const;
  friend bool operator==(const Date&, const Date&) = default;
};

// The reference of a keyed archive into its list of objects.
struct Uid {
  std::uint64_t index = 0;
  friend bool operator==(const Uid&, const Uid&) = default;
};

class ZP_EXPORT Value {
 public:
  // The order is that of the alternatives of `storage_`. `kUnsigned` holds only what does not fit a
  // signed integer: 2^63 to 2^64-1.
  enum class Type {
    kNull,
    kBoolean,
    kInteger,
    kUnsigned,
    kReal,
    kDate,
    kUid,
    kString,
    kData,
    kArray,
    kDictionary
  };

  Value() = default;
  Value(bool value) : storage_(value) {}
  Value(int value) : storage_(static_cast<std::int64_t>(value)) {}
  Value(std::int64_t value) : storage_(value) {}
  Value(double value) : storage_(value) {}
  Value(Date value) : storage_(value) {}
  Value(Uid value) : storage_(value) {}
  Value(const char* text);
  Value(std::string text);
  Value(Data bytes);
  Value(Array elements);
  Value(Dictionary entries);

  // A `kInteger` when the number fits one.
  [[nodiscard]] static Value ofUnsigned(std::uint64_t value);

  [[nodiscard]] Type type() const { return static_cast<Type>(storage_.index()); }
  [[nodiscard]] bool isNull() const { return type() == Type::kNull; }

  // The content when the value is of that type, else null. The pointer lives as long as any copy of
  // the value.
  [[nodiscard]] const bool* ifBoolean() const { return std::get_if<bool>(&storage_); }
  [[nodiscard]] const std::int64_t* ifInteger() const {
    return std::get_if<std::int64_t>(&storage_);
  }
  [[nodiscard]] const std::uint64_t* ifUnsigned() const {
    return std::get_if<std::uint64_t>(&storage_);
  }
  [[nodiscard]] const double* ifReal() const { return std::get_if<double>(&storage_); }
  [[nodiscard]] const Date* ifDate() const { return std::get_if<Date>(&storage_); }
  [[nodiscard]] const Uid* ifUid() const { return std::get_if<Uid>(&storage_); }
  [[nodiscard]] const std::string* ifString() const { return shared<std::string>(); }
  [[nodiscard]] const Data* ifData() const { return shared<Data>(); }
  [[nodiscard]] const Array* ifArray() const { return shared<Array>(); }
  [[nodiscard]] const Dictionary* ifDictionary() const { return shared<Dictionary>(); }

  // What a property-list number or text converts to; 0 or false for every other type and for text
  // that starts with no number. Text is read as its leading decimal number, after white space; as a
  // boolean it is true when it starts with Y, y, T, t or, after zeros, with a digit from 1 to 9.
  // An integer out of the range of the result wraps as the phone's does; a real is cut off toward
  // zero and clamped; text is clamped.
  [[nodiscard]] bool boolValue() const;
  [[nodiscard]] std::int64_t integerValue() const;
  [[nodiscard]] double doubleValue() const;
  [[nodiscard]] float floatValue() const;

  // Equal in type and content; dictionaries also in the order of their keys.
  friend ZP_EXPORT bool operator==(const Value& left, const Value& right);

 private:
  template <class T>
  [[nodiscard]] const T* shared() const {
    const auto* pointer = std::get_if<std::shared_ptr<const T>>(&storage_);
    return pointer == nullptr ? nullptr : pointer->get();
  }

  std::variant<std::monostate, bool, std::int64_t, std::uint64_t, double, Date, Uid,
               std::shared_ptr<const std::string>, std::shared_ptr<const Data>,
               std::shared_ptr<const Array>, std::shared_ptr<const Dictionary>>
      storage_;
};

}  // namespace zephyl
