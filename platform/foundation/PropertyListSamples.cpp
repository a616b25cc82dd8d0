#include "platform/foundation/PropertyListSamples.h"

#include <limits>

#include "platform/foundation/Dictionary.h"
#include "platform/foundation/Utf8.h"

namespace zephyl::samples {

namespace {

int upTo(int most) {
  return *rc::gen::inRange(0, most + 1);
}

std::string anyText(const Mix& mix) {
  constexpr std::u32string_view kOften =
      U"aZ09 <>&\"'\t\n]-\u00E4\u00DF\u20AC\u05D0\u3042\uFFFD\U0001F600\U0010FFFF";
  std::string text;
  for (int i = upTo(20); i > 0; --i) {
    const auto at = static_cast<std::size_t>(upTo(static_cast<int>(kOften.size())));
    if (at < kOften.size()) {
      appendUtf8(text, kOften[at]);
    } else if (mix.carriageReturns) {
      text += '\r';
    }
  }
  return text;
}

std::int64_t anyInteger() {
  constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
  constexpr auto kLeast = std::numeric_limits<std::int64_t>::min();
  return *rc::gen::oneOf(rc::gen::arbitrary<std::int64_t>(),
                         rc::gen::element<std::int64_t>(0, -1, 127, 128, 255, 256, 65535, 65536,
                                                        4294967295, 4294967296, kMost, kLeast));
}

double anyReal(const Mix& mix) {
  using Limits = std::numeric_limits<double>;
  double real = *rc::gen::oneOf(
      rc::gen::arbitrary<double>(),
      rc::gen::element(0.0, -0.0, 0.1, 5.0, 1e22, Limits::max(), Limits::min(), Limits::lowest(),
                       Limits::denorm_min(), 1.0 / 3.0, 9007199254740993.0));
  if (real == 0.0 && !mix.negativeZero) {
    real = 0.0;
  }
  return mix.nanAndInfinity ? *rc::gen::element(real, real, real, Limits::quiet_NaN(),
                                                Limits::infinity(), -Limits::infinity())
                            : real;
}

Date anyDate(const Mix& mix) {
  const auto steps = static_cast<std::int64_t>(1.0 / mix.dateUnit);
  return Date{static_cast<double>(*rc::gen::inRange(mix.earliest * steps, mix.latest * steps)) *
              mix.dateUnit};
}

Value anyScalar(const Mix& mix) {
  switch (upTo(mix.uids ? 7 : 6)) {
    case 0:
      return anyText(mix);
    case 1:
      return *rc::gen::arbitrary<bool>();
    case 2:
      return anyInteger();
    case 3:
      return Value::ofUnsigned(*rc::gen::arbitrary<std::uint64_t>() | std::uint64_t{1} << 63U);
    case 4:
      return anyReal(mix);
    case 5:
      return anyDate(mix);
    case 6:
      return *rc::gen::arbitrary<Data>();
    default:
      return Uid{static_cast<std::uint64_t>(anyInteger()) & mix.largestUid};
  }
}

Value anyValue(const Mix& mix, int deepest) {
  const int kind = deepest > 0 ? upTo(3) : 3;
  if (kind > 1) {
    return anyScalar(mix);
  }
  const int size = upTo(upTo(5) == 0 ? 40 : 4);
  Array elements;
  Dictionary entries;
  for (int i = 0; i < size; ++i) {
    Value element = anyValue(mix, deepest - 1);
    if (kind == 0) {
      elements.push_back(std::move(element));
    } else {
      entries.set(anyText(mix), std::move(element));
    }
  }
  return kind == 0 ? Value(std::move(elements)) : Value(std::move(entries));
}

}  // namespace

std::string xmlFile(std::string_view value) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
         "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
         "<plist version=\"1.0\">\n" +
         std::string(value) + "\n</plist>\n";
}

std::string number(std::uint64_t value, std::size_t width) {
  std::string bytes;
  for (std::size_t i = width; i > 0; --i) {
    bytes += i > 8 ? '\0' : static_cast<char>(value >> (8 * (i - 1)));
  }
  return bytes;
}

std::string BinaryFile::bytes() const {
  std::string file = "bplist00";
  std::string table;
  for (const std::string& object : objects) {
    table += number(file.size(), offsetSize);
    file += object;
  }
  const std::size_t tableAt = file.size();
  return file + table + number(0, 6) + number(offsetSize, 1) + number(referenceSize, 1) +
         number(objects.size(), 8) + number(root, 8) + number(tableAt, 8);
}

Value nestedArrays(std::size_t depth) {
  Value value = Array{};
  for (std::size_t i = 1; i < depth; ++i) {
    value = Array{value};
  }
  return value;
}

rc::Gen<Value> values(const Mix& mix) {
  constexpr int kDeepest = 4;
  return rc::gen::exec([mix] { return anyValue(mix, kDeepest); });
}

bool same(const Value& left, const Value& right) {
  if (left == right) {
    return true;
  }
  // XML keeps everything but the bits of a NaN; what it cannot hold is compared in binary.
  const std::string xml = writeXmlPropertyList(left);
  return xml.empty() ? writeBinaryPropertyList(left) == writeBinaryPropertyList(right)
                     : xml == writeXmlPropertyList(right);
}

std::string_view view(const Data& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace zephyl::samples

namespace zephyl {

void showValue(const Value& value, std::ostream& out) {
  out << writeXmlPropertyList(value);
}

}  // namespace zephyl
