#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/foundation/PropertyList.h"
#include "platform/foundation/PropertyListSamples.h"

namespace zephyl {
namespace {

using samples::xmlFile;
using std::string_literals::operator""s;

struct Case {
  std::string xml;
  std::string reason;
  std::size_t line = 4;
};

void expectErrors(const std::vector<Case>& cases, bool wholeFiles) {
  for (const auto& [xml, reason, line] : cases) {
    const PropertyListResult result = readPropertyList(wholeFiles ? xml : xmlFile(xml));
    ASSERT_FALSE(result.ok()) << xml;
    EXPECT_EQ(result.error().reason, reason) << xml;
    EXPECT_EQ(result.error().line, line) << xml;
  }
}

TEST(PropertyListXmlErrorsTest, NamesWhatIsWrongWithTheStructure) {
  expectErrors({{"", "no value in <plist>", 3},
                {"<true/>\n<true/>", "a second value in <plist>", 5},
                {"<blob>x</blob>", "unknown element <blob>"},
                {"<"s + std::string(60, 'x') + "/>", "unknown element a tag"},
                {"<array>\n<plist/></array>", "unknown element <plist>", 5},
                {"<array>\n<![CDATA[x]]></array>", "unknown element <![CDATA[x]]>", 5},
                {"<array>\n\nx</array>", "text where a tag is expected", 6},
                {"<array></dict>", "</dict> closes nothing"},
                {"</array>", "</array> closes nothing"},
                {"<key>x</key>", "a <key> outside a dictionary"},
                {"<array><key>x</key></array>", "a <key> outside a dictionary"},
                {"<dict>\n<string>x</string></dict>", "<string> where a <key> is expected", 5},
                {"<dict><key>x</key>\n<key>y</key></dict>",
                 "a <key> where the value of the key before is expected", 5},
                {"<dict><key>x</key>\n</dict>", "a <key> without a value", 5},
                {"<true>x</true>", "text inside <true>"},
                {"<string><b>x</b></string>", "a tag inside the text of <string>"},
                {"<string>x</key>", "a tag inside the text of <string>"},
                {"<string x", "a tag has no end"},
                {"<string/x>", "a tag is malformed"},
                {"<true/ >", "a tag is malformed"},
                {"<array></array x>", "a tag is malformed"},
                {"<string><!ENTITY x></string>", "a tag is malformed"}},
               /*wholeFiles=*/false);
}

TEST(PropertyListXmlErrorsTest, NamesScalarsThatAreNone) {
  std::vector<Case> cases;
  for (const char* text : {"", " ", "x", "5x", "1.0", "1e3", "--5", "+-5", "- 5", "0x", "0xG",
                           "5 5", "18446744073709551616", "-9223372036854775809",
                           "-0x8000000000000001", "0x10000000000000000", "\u0663"}) {
    cases.push_back({"<integer>"s + text + "</integer>", "not a valid <integer>"});
  }
  for (const char* text : {"", "x", "1,5", "1.2.3", "1e", "e5", "--1", "0x10", "1e999", "nan(1)",
                           "infinit", ".", "1 2"}) {
    cases.push_back({"<real>"s + text + "</real>", "not a valid <real>"});
  }
  for (const char* text :
       {"", "now", "2020-01-01", "2020-01-01T00:00:00", "2020-13-01T00:00:00Z",
        "2020-00-01T00:00:00Z", "2020-01-32T00:00:00Z", "2021-02-29T00:00:00Z",
        "2020-01-01T24:00:00Z", "2020-01-01T00:60:00Z", "2020-01-01T00:00:60Z",
        "-001-01-01T00:00:00Z", "20200-01-01T00:00:00Z", "2020-01-01 00:00:00Z",
        "2020-01-01T00:00:00.Z", "2020-01-01T00:00:00.5e1Z", "2020-01-01T00:00:00+00"}) {
    cases.push_back({"<date>"s + text + "</date>", "not a valid <date>"});
  }
  for (const char* text : {"1", "nan", "x", ""}) {
    cases.push_back(
        {"<date fraction=\""s + text + "\">2020-01-01T00:00:00Z</date>", "not a valid <date>"});
  }
  for (const char* text : {"A", "AQ", "AQ=", "AQI", "AQ===", "====", "AQ==AQ==", "A=ID", "AQ*D"}) {
    cases.push_back({"<data>"s + text + "</data>", "not a valid <data>"});
  }
  cases.push_back({"<integer/>", "not a valid <integer>"});
  expectErrors(cases, /*wholeFiles=*/false);
}

TEST(PropertyListXmlErrorsTest, RefusesTextThatIsNotCharacters) {
  std::vector<Case> cases;
  for (const char* reference : {"&nbsp;", "&", "& ", "&amp", "&LT;", "&x0;"}) {
    cases.push_back(
        {"<string>"s + reference + "</string>", "a reference that is not known, or a bare \"&\""});
  }
  for (const char* reference : {"&#0;", "&#;", "&#x;", "&#xD800;", "&#x110000;", "&#99999999999;",
                                "&#xFFFE;", "&#8;", "&#65", "&#-65;", "&#X41;"}) {
    cases.push_back({"<string>"s + reference + "</string>", "a reference to no character"});
  }
  for (const std::string& bad : {"\x80"s, "\xC0\xAF"s, "\xED\xA0\x80"s, "\xC3"s, "\xFF"s}) {
    cases.push_back({"<array>\n<string>long enough for a block " + bad + "</string></array>",
                     "text that is not UTF-8", 5});
  }
  for (const std::string& bad : {"\0"s, "\x01"s, "\x1F"s}) {
    cases.push_back({"<string>" + bad + "</string>", "a character that XML forbids"});
  }
  cases.push_back({"<string>\xEF\xBF\xBF</string>", "a character that XML forbids"});
  expectErrors(cases, /*wholeFiles=*/false);
}

TEST(PropertyListXmlErrorsTest, RefusesFilesOfOtherKinds) {
  expectErrors(
      {{"", "the file is empty", 0},
       {"\xEF\xBB\xBF", "the file ends before the property list does", 1},
       {"\n \n", "the file ends before the property list does", 3},
       {"\n{ a = 1; }", "neither an XML nor a binary property list", 2},
       {"<?xml version='1.0' encoding='ISO-8859-1'?><true/>",
        "the encoding \"ISO-8859-1\" is not known; save as UTF-8", 1},
       {"\n<!DOCTYPE plist [\n<!ENTITY a 'b'>]><true/>",
        "declarations inside the document type are not allowed", 2},
       {"<plist/>", "no value in <plist>", 1},
       {"<true/>\nx", "something follows the end of the property list", 2},
       {"<plist><true/></plist><plist/>", "something follows the end of the property list", 1},
       {"\xFF\xFEx", "text that is not UTF-16", 1}},
      /*wholeFiles=*/true);
}

TEST(PropertyListXmlErrorsTest, RefusesAFileThatIsCutOffAnywhere) {
  const std::string whole = xmlFile(
      "<dict><key>a&amp;b</key><!-- c --><array><integer>12</integer><real>1.5</real>"
      "<date fraction=\"0.5\">2020-01-01T00:00:00Z</date><data>AQID</data><true/>"
      "<string>x<![CDATA[y]]>\u00E4</string></array></dict>");
  ASSERT_TRUE(readPropertyList(whole).ok());
  const std::size_t end = whole.rfind('>') + 1;
  for (std::size_t size = 0; size < end; ++size) {
    EXPECT_FALSE(readPropertyList(whole.substr(0, size)).ok()) << size;
  }
}

TEST(PropertyListXmlErrorsTest, TellsFileLineAndReason) {
  const PropertyListResult result = readPropertyList(xmlFile("<array>\n<integer>x</integer>"));
  EXPECT_EQ(result.error().message("/a/b.plist"), "/a/b.plist: line 5: not a valid <integer>");
}

}  // namespace
}  // namespace zephyl
