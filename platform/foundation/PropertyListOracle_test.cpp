// Generated values go through two other readers and writers of property lists and must come back.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <plist/plist.h>

#include "platform/foundation/PropertyList.h"
#include "platform/foundation/PropertyListSamples.h"

namespace zephyl {
namespace {

enum class Form { kXml, kBinary };

std::string written(const Value& value, Form form) {
  if (form == Form::kXml) {
    return writeXmlPropertyList(value);
  }
  const Data bytes = writeBinaryPropertyList(value);
  return std::string(samples::view(bytes));
}

// Null when libplist cannot read the file.
std::optional<std::string> throughLibplist(const std::string& file, Form form) {
  plist_t read = nullptr;
  plist_from_memory(file.data(), static_cast<std::uint32_t>(file.size()), &read);
  if (read == nullptr) {
    return std::nullopt;
  }
  const std::unique_ptr<void, decltype(&plist_free)> owner(read, &plist_free);
  char* bytes = nullptr;
  std::uint32_t size = 0;
  (form == Form::kXml ? plist_to_xml : plist_to_bin)(read, &bytes, &size);
  const std::unique_ptr<char, decltype(&plist_to_bin_free)> bytesOwner(bytes, &plist_to_bin_free);
  return bytes == nullptr ? std::nullopt : std::optional(std::string(bytes, size));
}

TEST(PropertyListOracleTest, ValuesComeBackFromLibplistInBothForms) {
  samples::Mix mix;
  mix.largestUid = 0xFFFFFFFF;
  mix.carriageReturns = false;  // it writes them bare into XML
  mix.negativeZero = false;     // in XML it drops the sign,
  mix.dateUnit = 1;             // fractions of dates too,
  mix.earliest = -2147483648;   // and its seconds have 32 bits
  mix.latest = 2147483647;
  const bool holds = rc::check([&mix] {
    const Value value = *samples::values(mix);
    for (const Form from : {Form::kXml, Form::kBinary}) {
      for (const Form to : {Form::kXml, Form::kBinary}) {
        const std::optional<std::string> file = throughLibplist(written(value, from), to);
        RC_ASSERT(file.has_value());
        const PropertyListResult result = readPropertyList(*file);
        RC_ASSERT(result.ok());
        RC_ASSERT(samples::same(result.value(), value));
      }
    }
  });
  EXPECT_TRUE(holds);
}

class PythonOracleTest : public testing::Test {
 protected:
  PythonOracleTest() {
    std::string name = (std::filesystem::temp_directory_path() / "plists.XXXXXX").string();
    folder_ = mkdtemp(name.data());
  }
  ~PythonOracleTest() override { std::filesystem::remove_all(folder_); }

  void write(const std::string& name, std::string_view bytes) const {
    std::ofstream(folder_ / name, std::ios::binary) << bytes;
  }
  [[nodiscard]] std::string read(const std::string& name) const {
    std::ifstream file(folder_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  // Every "N.ours" of the folder becomes "N.theirs", in one process for all of them.
  [[nodiscard]] bool run(Form form) const {
    const std::string python = form == Form::kXml ? "FMT_XML" : "FMT_BINARY";
    write("copy.py",
          "import pathlib, plistlib\n"
          "for path in pathlib.Path(__file__).parent.glob('*.ours'):\n"
          "    value = plistlib.loads(path.read_bytes(), fmt=plistlib." +
              python +
              ")\n"
              "    path.with_suffix('.theirs').write_bytes(\n"
              "        plistlib.dumps(value, fmt=plistlib." +
              python + ", sort_keys=False))\n");
    return std::system(("/usr/bin/python3 -I '" + (folder_ / "copy.py").string() + "'").c_str()) ==
           0;
  }

  void expectValuesComeBack(const samples::Mix& mix, Form form) const;

  std::filesystem::path folder_;
};

void PythonOracleTest::expectValuesComeBack(const samples::Mix& mix, Form form) const {
  constexpr int kValues = 300;
  constexpr int kLargest = 100;
  std::vector<Value> values;
  for (int i = 0; i < kValues; ++i) {
    const rc::Random random(static_cast<std::uint64_t>(i));
    values.push_back(samples::values(mix)(random, i % kLargest).value());
    write(std::to_string(i) + ".ours", written(values.back(), form));
  }
  ASSERT_TRUE(run(form));
  for (int i = 0; i < kValues; ++i) {
    const PropertyListResult result = readPropertyList(read(std::to_string(i) + ".theirs"));
    ASSERT_TRUE(result.ok()) << result.error().reason;
    ASSERT_TRUE(samples::same(result.value(), values[static_cast<std::size_t>(i)]))
        << writeXmlPropertyList(values[static_cast<std::size_t>(i)])
        << writeXmlPropertyList(result.value());
  }
}

TEST_F(PythonOracleTest, ValuesComeBackFromPythonInXml) {
  samples::Mix mix;
  mix.uids = false;             // it cannot write them
  mix.carriageReturns = false;  // it replaces them
  mix.dateUnit = 1;
  expectValuesComeBack(mix, Form::kXml);
}

TEST_F(PythonOracleTest, ValuesComeBackFromPythonInBinary) {
  samples::Mix mix;
  mix.negativeZero = false;  // it takes 0.0 and -0.0 for one object
  expectValuesComeBack(mix, Form::kBinary);
}

}  // namespace
}  // namespace zephyl
