#include "platform/foundation/PropertyListBinaryWriter.h"

#include <bit>
#include <cstdint>
#include <functional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/foundation/Dictionary.h"
#include "platform/foundation/PropertyListWriting.h"
#include "platform/foundation/Utf8.h"

namespace zephyl::detail {

namespace {

// What makes two objects one: type and content, of a container its identity.
struct ObjectKey {
  Value::Type type = Value::Type::kNull;
  std::uint64_t bits = 0;
  std::string_view content;
  friend bool operator==(const ObjectKey&, const ObjectKey&) = default;
};

struct ObjectKeyHash {
  std::size_t operator()(const ObjectKey& key) const {
    constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15U;
    std::uint64_t hash = key.bits * kOdd ^ static_cast<std::uint64_t>(key.type);
    hash = (hash ^ (hash >> 29U)) * kOdd;
    return hash ^ (hash >> 32U) ^ std::hash<std::string_view>()(key.content);
  }
};

std::string_view contentOf(const Data& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

template <class T>
std::uint64_t identityOf(const T& object) {
  return static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(&object));
}

ObjectKey keyOf(const std::string& text) {
  return {Value::Type::kString, 0, text};
}

ObjectKey keyOf(const Value& value) {
  switch (value.type()) {
    case Value::Type::kBoolean:
      return {value.type(), *value.ifBoolean() ? 1U : 0U, {}};
    case Value::Type::kInteger:
      return {value.type(), static_cast<std::uint64_t>(*value.ifInteger()), {}};
    case Value::Type::kUnsigned:
      return {value.type(), *value.ifUnsigned(), {}};
    case Value::Type::kReal:
      return {value.type(), std::bit_cast<std::uint64_t>(*value.ifReal()), {}};
    case Value::Type::kDate:
      return {value.type(),
              std::bit_cast<std::uint64_t>(value.ifDate()->secondsSinceReferenceDate),
              {}};
    case Value::Type::kUid:
      return {value.type(), value.ifUid()->index, {}};
    case Value::Type::kString:
      return keyOf(*value.ifString());
    case Value::Type::kData:
      return {value.type(), 0, contentOf(*value.ifData())};
    case Value::Type::kArray:
      return {value.type(), identityOf(*value.ifArray()), {}};
    default:
      return {value.type(), identityOf(*value.ifDictionary()), {}};
  }
}

// The bytes, 1, 2, 4 or 8, that the number needs.
std::size_t widthOf(std::uint64_t number) {
  return number <= 0xFF ? 1 : number <= 0xFFFF ? 2 : number <= 0xFFFFFFFF ? 4 : 8;
}

unsigned logarithm(std::size_t width) {
  return static_cast<unsigned>(std::countr_zero(width));
}

class BinaryWriter {
 public:
  [[nodiscard]] Data write(const Value& root);

 private:
  // An object in its file order. Its references, if it is a container, are `references_` from
  // `firstReference` on.
  struct Object {
    ObjectKey key;
    std::size_t size = 0;
    std::size_t firstReference = 0;
  };
  struct OpenContainer {
    WritingStep step;
    std::size_t firstReference = 0;
  };

  void number(const Value& root);
  void numberElement(std::size_t i);
  [[nodiscard]] std::size_t add(const ObjectKey& key, const Value* value);
  void object(const Object& object);
  void integer(std::uint64_t bits, Value::Type type);
  void text(std::string_view text);
  void container(unsigned kind, const Object& object, std::size_t references);
  void marker(unsigned kind, std::size_t size);
  void bigEndian(std::uint64_t value, std::size_t width);
  void byte(std::uint64_t value) { out_.push_back(static_cast<std::uint8_t>(value)); }

  std::unordered_map<ObjectKey, std::size_t, ObjectKeyHash> numbers_;
  std::vector<Object> objects_;
  std::vector<std::size_t> references_;
  std::vector<OpenContainer> open_;
  std::size_t referenceWidth_ = 1;
  Data out_;
};

Data BinaryWriter::write(const Value& root) {
  number(root);
  referenceWidth_ = widthOf(objects_.size() - 1);
  constexpr std::string_view kMagic = "bplist00";
  out_.assign(kMagic.begin(), kMagic.end());
  std::vector<std::size_t> offsets;
  offsets.reserve(objects_.size());
  for (const Object& one : objects_) {
    offsets.push_back(out_.size());
    object(one);
  }
  const std::size_t table = out_.size();
  const std::size_t offsetWidth = widthOf(table);
  for (const std::size_t offset : offsets) {
    bigEndian(offset, offsetWidth);
  }
  bigEndian(0, 6);
  byte(offsetWidth);
  byte(referenceWidth_);
  bigEndian(objects_.size(), 8);
  bigEndian(0, 8);  // the root comes first
  bigEndian(table, 8);
  return std::move(out_);
}

void BinaryWriter::number(const Value& root) {
  static_cast<void>(add(keyOf(root), &root));
  while (!open_.empty()) {
    WritingStep& step = open_.back().step;
    const std::size_t elements = step.dictionary != nullptr ? 2 * step.size() : step.size();
    if (step.begun == elements) {
      open_.pop_back();
      continue;
    }
    numberElement(step.begun++);
  }
}

// The element `i` of the innermost container; in a dictionary all keys come before all values.
void BinaryWriter::numberElement(std::size_t i) {
  const WritingStep step = open_.back().step;
  const std::size_t slot = open_.back().firstReference + i;
  const std::size_t size = step.size();
  if (step.dictionary != nullptr && i < size) {
    references_[slot] = add(keyOf(step.entryAt(i).first), nullptr);
    return;
  }
  const Value& value = step.valueAt(step.dictionary != nullptr ? i - size : i);
  references_[slot] = add(keyOf(value), &value);
}

// The object's number; a container that is new is opened. `value` is null for a key.
std::size_t BinaryWriter::add(const ObjectKey& key, const Value* value) {
  const auto [known, isNew] = numbers_.try_emplace(key, objects_.size());
  if (!isNew) {
    return known->second;
  }
  Object object{key, 0, references_.size()};
  if (const auto step = value != nullptr ? stepInto(*value) : std::nullopt) {
    object.size = step->size();
    open_.push_back({*step, references_.size()});
    references_.resize(references_.size() + (step->dictionary != nullptr ? 2 : 1) * object.size);
  }
  objects_.push_back(object);
  return known->second;
}

void BinaryWriter::object(const Object& object) {
  const ObjectKey& key = object.key;
  switch (key.type) {
    case Value::Type::kBoolean:
      byte(0x08 + key.bits);
      return;
    case Value::Type::kReal:
    case Value::Type::kDate:
      byte(key.type == Value::Type::kReal ? 0x23 : 0x33);
      bigEndian(key.bits, 8);
      return;
    case Value::Type::kUid:
      byte(0x80 + widthOf(key.bits) - 1);
      bigEndian(key.bits, widthOf(key.bits));
      return;
    case Value::Type::kString:
      text(key.content);
      return;
    case Value::Type::kData:
      marker(0x4, key.content.size());
      out_.insert(out_.end(), key.content.begin(), key.content.end());
      return;
    case Value::Type::kArray:
      container(0xA, object, object.size);
      return;
    case Value::Type::kDictionary:
      container(0xD, object, 2 * object.size);
      return;
    default:
      integer(key.bits, key.type);
      return;
  }
}

// Negative numbers take 8 bytes, those from 2^63 on 16: shorter forms have no sign.
void BinaryWriter::integer(std::uint64_t bits, Value::Type type) {
  if (type == Value::Type::kUnsigned) {
    byte(0x14);
    bigEndian(0, 8);
    bigEndian(bits, 8);
    return;
  }
  const std::size_t width = widthOf(bits);
  byte(0x10 + logarithm(width));
  bigEndian(bits, width);
}

void BinaryWriter::text(std::string_view text) {
  std::size_t units = 0;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    units += byte >= 0xF0 ? 2 : (byte & 0xC0U) != 0x80 ? 1 : 0;
  }
  if (units == text.size()) {
    marker(0x5, units);
    out_.insert(out_.end(), text.begin(), text.end());
    return;
  }
  marker(0x6, units);
  for (std::size_t at = 0; at < text.size();) {
    const Utf8Character character = utf8CharacterAt(text, at);
    at += character.length;
    if (character.codePoint < 0x10000) {
      bigEndian(character.codePoint, 2);
    } else {
      bigEndian(0xD800 + ((character.codePoint - 0x10000) >> 10U), 2);
      bigEndian(0xDC00 + ((character.codePoint - 0x10000) & 0x3FFU), 2);
    }
  }
}

void BinaryWriter::container(unsigned kind, const Object& object, std::size_t references) {
  marker(kind, object.size);
  for (std::size_t i = 0; i < references; ++i) {
    bigEndian(references_[object.firstReference + i], referenceWidth_);
  }
}

void BinaryWriter::marker(unsigned kind, std::size_t size) {
  constexpr std::size_t kLargestInMarker = 14;
  if (size <= kLargestInMarker) {
    byte((kind << 4U) | size);
    return;
  }
  byte((kind << 4U) | 0xFU);
  integer(size, Value::Type::kInteger);
}

void BinaryWriter::bigEndian(std::uint64_t value, std::size_t width) {
  for (std::size_t i = width; i > 0; --i) {
    byte(value >> (8 * (i - 1)));
  }
}

}  // namespace

Data writeBinary(const Value& root) {
  return BinaryWriter().write(root);
}

}  // namespace zephyl::detail
