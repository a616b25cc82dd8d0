#include "platform/foundation/PropertyListBinaryReader.h"

#include <bit>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "platform/foundation/Dictionary.h"
#include "platform/foundation/PropertyListGraph.h"
#include "platform/foundation/PropertyListLimits.h"
#include "platform/foundation/PropertyListUid.h"
#include "platform/foundation/Utf8.h"

namespace zephyl::detail {

namespace {

constexpr std::size_t kHeaderSize = 8;
constexpr std::size_t kTrailerSize = 32;
constexpr const char* kRunsOut = "an object reaches past the last one's end";

// `size` of 8 or less.
std::uint64_t bigEndian(std::string_view bytes, std::size_t at, std::size_t size) {
  std::uint64_t value = 0;
  for (const char c : bytes.substr(at, size)) {
    value = (value << 8U) | static_cast<unsigned char>(c);
  }
  return value;
}

// How the first byte of an object reads.
struct Marker {
  unsigned kind = 0;
  unsigned low = 0;
};

class BinaryReader : public ObjectSource {
 public:
  using Outcome = std::variant<StoredObject, std::string>;

  explicit BinaryReader(std::string_view bytes) : bytes_(bytes) {}

  [[nodiscard]] PropertyListResult read();

  [[nodiscard]] std::size_t count() const override { return count_; }
  [[nodiscard]] Outcome objectAt(std::size_t number) override;
  [[nodiscard]] std::size_t offsetOf(std::size_t number) const override;
  [[nodiscard]] Value dictionary(Dictionary entries) const override {
    return uidOrDictionary(std::move(entries));
  }

 private:
  [[nodiscard]] std::optional<PropertyListError> readTrailer();
  [[nodiscard]] Outcome parse();
  [[nodiscard]] Outcome simple(Marker marker) const;
  [[nodiscard]] Outcome integer(Marker marker);
  [[nodiscard]] Outcome real(Marker marker);
  [[nodiscard]] Outcome date(Marker marker);
  [[nodiscard]] Outcome uid(Marker marker);
  [[nodiscard]] Outcome sized(Marker marker);
  [[nodiscard]] Outcome text(std::string_view content, bool isUtf16) const;
  [[nodiscard]] Outcome container(StoredObject::Kind kind, std::string_view content) const;
  [[nodiscard]] std::optional<std::uint64_t> sizeOf(Marker marker);
  [[nodiscard]] std::optional<std::string_view> take(std::size_t size);

  static StoredObject scalar(Value value) {
    return {StoredObject::Kind::kScalar, std::move(value), 0, {}};
  }

  std::string_view bytes_;
  std::size_t offsetSize_ = 0;
  std::size_t referenceSize_ = 0;
  std::size_t count_ = 0;
  std::size_t root_ = 0;
  std::size_t table_ = 0;  // where the offsets stand, and the objects end
  std::size_t at_ = 0;     // in the object that is being read
  std::size_t consumed_ = 0;
};

PropertyListResult BinaryReader::read() {
  if (const auto error = readTrailer()) {
    return *error;
  }
  return buildValue(*this, root_, maximumWeight(bytes_.size()));
}

std::optional<PropertyListError> BinaryReader::readTrailer() {
  if (!bytes_.starts_with("bplist00")) {
    return PropertyListError{"a binary property list of a version that is not known", 0, 0};
  }
  if (bytes_.size() < kHeaderSize + 1 + 1 + kTrailerSize) {
    return PropertyListError{"the file is too short for a binary property list", 0, 0};
  }
  const std::size_t trailer = bytes_.size() - kTrailerSize;
  offsetSize_ = bigEndian(bytes_, trailer + 6, 1);
  referenceSize_ = bigEndian(bytes_, trailer + 7, 1);
  count_ = bigEndian(bytes_, trailer + 8, 8);
  root_ = bigEndian(bytes_, trailer + 16, 8);
  table_ = bigEndian(bytes_, trailer + 24, 8);
  if (offsetSize_ < 1 || offsetSize_ > 8 || referenceSize_ < 1 || referenceSize_ > 8) {
    return PropertyListError{"the trailer gives no possible size of offsets and references",
                             trailer + 6, 0};
  }
  if (table_ <= kHeaderSize || table_ >= trailer) {
    return PropertyListError{"the trailer gives no possible place of the offsets", trailer + 24, 0};
  }
  const std::size_t room = trailer - table_;
  const bool tooManyForTheirOffsets = offsetSize_ < 8 && (count_ >> (8 * offsetSize_)) != 0;
  if (room % offsetSize_ != 0 || count_ != room / offsetSize_ || count_ > table_ - kHeaderSize ||
      tooManyForTheirOffsets) {
    return PropertyListError{"the trailer gives no possible number of objects", trailer + 8, 0};
  }
  if (root_ >= count_) {
    return PropertyListError{"the trailer names no root object", trailer + 16, 0};
  }
  return std::nullopt;
}

std::size_t BinaryReader::offsetOf(std::size_t number) const {
  return bigEndian(bytes_, table_ + number * offsetSize_, offsetSize_);
}

BinaryReader::Outcome BinaryReader::objectAt(std::size_t number) {
  const std::size_t start = offsetOf(number);
  if (start < kHeaderSize || start >= table_) {
    return "an object that stands outside the objects";
  }
  at_ = start;
  Outcome outcome = parse();
  // Objects side by side cannot be longer in all than the file. This bounds the work.
  consumed_ += at_ - start;
  if (consumed_ > table_ - kHeaderSize) {
    return "objects that overlap";
  }
  return outcome;
}

std::optional<std::string_view> BinaryReader::take(std::size_t size) {
  if (size > table_ - at_) {
    return std::nullopt;
  }
  at_ += size;
  return bytes_.substr(at_ - size, size);
}

BinaryReader::Outcome BinaryReader::parse() {
  const unsigned byte = static_cast<unsigned char>(bytes_[at_++]);
  const Marker marker{byte >> 4U, byte & 0xFU};
  switch (marker.kind) {
    case 0x0:
      return simple(marker);
    case 0x1:
      return integer(marker);
    case 0x2:
      return real(marker);
    case 0x3:
      return date(marker);
    case 0x8:
      return uid(marker);
    case 0x4:
    case 0x5:
    case 0x6:
    case 0xA:
    case 0xD:
      return sized(marker);
    case 0xC:
      return "a set, which no property list holds";
    default:
      return "an object of a type that is not known";
  }
}

BinaryReader::Outcome BinaryReader::simple(Marker marker) const {
  if (marker.low == 8 || marker.low == 9) {
    return scalar(Value(marker.low == 9));
  }
  return marker.low == 0 ? "a null, which no property list holds"
                         : "an object of a type that is not known";
}

BinaryReader::Outcome BinaryReader::integer(Marker marker) {
  if (marker.low > 4) {
    return "an integer of more than 16 bytes";
  }
  const auto content = take(std::size_t{1} << marker.low);
  if (!content) {
    return kRunsOut;
  }
  // Up to four bytes hold no negative numbers.
  if (marker.low < 3) {
    return scalar(Value::ofUnsigned(bigEndian(*content, 0, content->size())));
  }
  const std::uint64_t low = bigEndian(*content, content->size() - 8, 8);
  if (marker.low == 3) {
    return scalar(Value(static_cast<std::int64_t>(low)));
  }
  const std::uint64_t high = bigEndian(*content, 0, 8);
  if (high == 0) {
    return scalar(Value::ofUnsigned(low));
  }
  if (high == ~std::uint64_t{0} && (low >> 63U) != 0) {
    return scalar(Value(static_cast<std::int64_t>(low)));
  }
  return "an integer that is too large";
}

BinaryReader::Outcome BinaryReader::real(Marker marker) {
  if (marker.low != 2 && marker.low != 3) {
    return "a real of neither 4 nor 8 bytes";
  }
  const auto content = take(std::size_t{1} << marker.low);
  if (!content) {
    return kRunsOut;
  }
  const std::uint64_t bits = bigEndian(*content, 0, content->size());
  return scalar(Value(marker.low == 3 ? std::bit_cast<double>(bits)
                                      : static_cast<double>(std::bit_cast<float>(
                                            static_cast<std::uint32_t>(bits)))));
}

BinaryReader::Outcome BinaryReader::date(Marker marker) {
  const auto content = take(8);
  if (marker.low != 3 || !content) {
    return marker.low != 3 ? "a date of other than 8 bytes" : kRunsOut;
  }
  const Date date{std::bit_cast<double>(bigEndian(*content, 0, 8))};
  if (!isDateInRange(date.secondsSinceReferenceDate)) {
    return "a date outside the years 0 to 9999";
  }
  return scalar(Value(date));
}

BinaryReader::Outcome BinaryReader::uid(Marker marker) {
  const std::size_t size = marker.low + 1;
  if (size > 8) {
    return "a reference of more than 8 bytes";
  }
  const auto content = take(size);
  if (!content) {
    return kRunsOut;
  }
  return scalar(Value(Uid{bigEndian(*content, 0, size)}));
}

// The low half of the marker, or the integer behind it.
std::optional<std::uint64_t> BinaryReader::sizeOf(Marker marker) {
  if (marker.low != 0xF) {
    return marker.low;
  }
  const auto next = take(1);
  if (!next) {
    return std::nullopt;
  }
  const auto byte = static_cast<unsigned char>(next->front());
  if (byte < 0x10 || byte > 0x13) {
    return std::nullopt;
  }
  const auto content = take(std::size_t{1} << (byte & 0xFU));
  return content ? std::optional(bigEndian(*content, 0, content->size())) : std::nullopt;
}

BinaryReader::Outcome BinaryReader::sized(Marker marker) {
  const auto size = sizeOf(marker);
  if (!size) {
    return "a size that is no integer";
  }
  const bool isArray = marker.kind == 0xA;
  const bool isDictionary = marker.kind == 0xD;
  const bool isUtf16 = marker.kind == 0x6;
  const std::size_t unit = isArray        ? referenceSize_
                           : isDictionary ? 2 * referenceSize_
                                          : (isUtf16 ? 2U : 1U);
  if (*size > (table_ - at_) / unit) {
    return kRunsOut;
  }
  const std::string_view content = *take(*size * unit);
  if (isArray || isDictionary) {
    return container(isArray ? StoredObject::Kind::kArray : StoredObject::Kind::kDictionary,
                     content);
  }
  if (marker.kind == 0x4) {
    return scalar(Value(Data(content.begin(), content.end())));
  }
  return text(content, isUtf16);
}

BinaryReader::Outcome BinaryReader::text(std::string_view content, bool isUtf16) const {
  if (isUtf16) {
    Utf16Conversion conversion = utf8FromUtf16(content, ByteOrder::kBigEndian);
    if (conversion.invalidAt != std::string_view::npos) {
      return "text that is not UTF-16";
    }
    return scalar(Value(std::move(conversion.text)));
  }
  for (const char c : content) {
    if (static_cast<unsigned char>(c) >= 0x80) {
      return "text that is not ASCII though it says so";
    }
  }
  return scalar(Value(std::string(content)));
}

BinaryReader::Outcome BinaryReader::container(StoredObject::Kind kind,
                                              std::string_view content) const {
  StoredObject object{kind, Value(), 0, {}};
  object.references.reserve(content.size() / referenceSize_);
  for (std::size_t at = 0; at < content.size(); at += referenceSize_) {
    object.references.push_back(bigEndian(content, at, referenceSize_));
  }
  return object;
}

}  // namespace

PropertyListResult readBinaryPropertyList(std::string_view bytes) {
  return BinaryReader(bytes).read();
}

}  // namespace zephyl::detail
