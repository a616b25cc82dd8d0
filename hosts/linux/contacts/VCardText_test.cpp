// How vCards are written: lines, encodings, character sets and escapes.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/linux/contacts/ContactSamples.h"

namespace zephyl::linux_host {
namespace {

class VCardTextTest : public ::testing::Test {
 protected:
  std::string lastName(const std::string& text) const { return texts_.person(text).lastName; }

  std::vector<std::string> warnings(const VCardReading& reading) const {
    EXPECT_EQ(reading.notes.errors(), std::vector<std::string>());
    return withoutFile(reading.notes.warnings(), texts_.file());
  }

  VCardTexts texts_;
};

std::string utf16(std::string_view ascii, bool bigEndian) {
  std::string bytes;
  for (const char c : ascii) {
    bytes += bigEndian ? std::string{'\0', c} : std::string{c, '\0'};
  }
  return bytes;
}

TEST_F(VCardTextTest, FoldedLinesAreJoinedAtEveryKindOfLineBreak) {
  for (const char* end : {"\r\n", "\n", "\r", "\r\r\n"}) {
    std::string text;
    for (const char* line :
         {"BEGIN:VCARD", "VERSION:3.0", "N:Doe", " ber;Jo", "\thn;;;", "UID:7", "END:VCARD"}) {
      text.append(line).append(end);
    }
    const ABPerson person = texts_.person(text);
    EXPECT_EQ(person.lastName, "Doeber");
    EXPECT_EQ(person.firstName, "John");
    EXPECT_EQ(person.guid, "7");
  }
}

TEST_F(VCardTextTest, LineBreaksThatFallOnTheEndOfAPieceAreFound) {
  // Files are read in pieces of 256 KiB.
  for (std::size_t length = 262090; length < 262120; ++length) {
    const std::string note = "NOTE:" + std::string(length, 'x');
    EXPECT_EQ(lastName(card("3.0", {note, "N:Do", " e;;;;"})), "Doe") << length;
  }
}

TEST_F(VCardTextTest, NamesAreReadInAnyCaseAndWithAnyGroup) {
  const ABPerson person = texts_.person(
      "begin:vcard\nversion:3.0\nn:Doe;John;;;\nhome.tel;type=cell:1234567\n"
      "item1.Email:a@b.example\nend:vcard\n");
  EXPECT_EQ(person.lastName, "Doe");
  EXPECT_EQ(person.phones, (std::vector<ABLabeledText>{{"_$!<Mobile>!$_", "1234567"}}));
  EXPECT_EQ(person.emails, (std::vector<ABLabeledText>{{"", "a@b.example"}}));
}

TEST_F(VCardTextTest, MarksAndUtf16AreUnderstood) {
  const std::string text = card("3.0", {"N:Doe;John;;;"});
  EXPECT_EQ(lastName("\xEF\xBB\xBF" + text), "Doe");
  EXPECT_EQ(lastName("\xFF\xFE" + utf16(text, false)), "Doe");
  EXPECT_EQ(lastName("\xFE\xFF" + utf16(text, true)), "Doe");
  EXPECT_EQ(lastName(utf16(text, false)), "Doe");
  EXPECT_EQ(lastName(utf16(text, true)), "Doe");
}

TEST_F(VCardTextTest, Utf16PairsAreJoinedWhereverAPieceEnds) {
  const std::string pair("\x3D\xD8\x00\xDE", 4);  // U+1F600
  for (std::size_t length = 131050; length < 131062; ++length) {
    const std::string text = "\xFF\xFE" +
                             utf16("BEGIN:VCARD\nN:" + std::string(length, 'x'), false) + pair +
                             utf16(";;;;\nEND:VCARD\n", false);
    ASSERT_EQ(lastName(text), std::string(length, 'x') + "\xF0\x9F\x98\x80") << length;
  }
}

TEST_F(VCardTextTest, BrokenUtf16IsReplacedAndTold) {
  const std::string text = "\xFF\xFE" + utf16("BEGIN:VCARD\nN:Do", false) +
                           std::string("\x3D\xD8", 2) + utf16("e;;;;\nEND:VCARD\n", false);
  const VCardReading reading = texts_.read(text);
  ASSERT_EQ(reading.entries.size(), 1U);
  EXPECT_EQ(reading.entries[0].person.lastName,
            "Do\xEF\xBF\xBD"
            "e");
  EXPECT_EQ(warnings(reading),
            std::vector<std::string>{"2: the line has broken characters; they are replaced"});
}

TEST_F(VCardTextTest, QuotedPrintableGoesOnAfterSoftLineBreaks) {
  EXPECT_EQ(lastName(card(
                "2.1", {"N;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:M=C3=BC=", "ller;J=", ";;;"})),
            "M\xC3\xBCller");
  EXPECT_EQ(lastName(card("2.1", {"N;QUOTED-PRINTABLE;CHARSET=utf-8:=", "=C3=96z;;;;"})),
            "\xC3\x96z");
}

TEST_F(VCardTextTest, ASoftLineBreakNeverSwallowsTheEndOfTheCard) {
  const VCardReading reading =
      texts_.read(card("2.1", {"N;ENCODING=QUOTED-PRINTABLE:Doe="}) + card("3.0", {"N:Roe;;;;"}));
  ASSERT_EQ(reading.entries.size(), 2U);
  EXPECT_EQ(reading.entries[0].person.lastName, "Doe");
  EXPECT_EQ(warnings(reading),
            std::vector<std::string>{"3: N ends in the middle of its quoted-printable text"});
}

TEST_F(VCardTextTest, CharacterSetsAreConverted) {
  EXPECT_EQ(lastName(card("2.1", {"N;CHARSET=ISO-8859-1:M\xFCller;;;;"})), "M\xC3\xBCller");
  EXPECT_EQ(lastName(card("2.1", {"N;CHARSET=\"windows-1251\":\xC8\xE2\xE0\xED;;;;"})),
            "\xD0\x98\xD0\xB2\xD0\xB0\xD0\xBD");
  EXPECT_EQ(
      lastName(card("2.1", {"N;CHARSET=SHIFT_JIS;ENCODING=QUOTED-PRINTABLE:=8E=52=93=63;;;;"})),
      "\xE5\xB1\xB1\xE7\x94\xB0");
}

TEST_F(VCardTextTest, BrokenBytesAreMendedAndTold) {
  struct Case {
    const char* line;
    const char* name;
    const char* warning;
  };
  const std::vector<Case> cases = {
      {"N:M\xFCller;;;;", "M\xC3\xBCller", "3: N is not UTF-8; read as Windows-1252"},
      {"N:M\xC3\xBCll\xFF;;;;", "M\xC3\xBCll\xEF\xBF\xBD",
       "3: N is not UTF-8; the broken bytes are replaced"},
      {"N;CHARSET=Klingon:Doe;;;;", "Doe",
       "3: N has the unknown character set Klingon; read as UTF-8"},
      {"N;CHARSET=Shift_JIS:D\x81;;;;", "D\xEF\xBF\xBD;;;",
       "3: N has bytes that are not SHIFT_JIS; they are replaced"},
      {"N;ENCODING=QUOTED-PRINTABLE:D=XXe;;;;", "D=XXe",
       "3: N is not proper quoted-printable text"},
  };
  for (const Case& each : cases) {
    const VCardReading reading = texts_.read(card("3.0", {each.line}));
    ASSERT_EQ(reading.entries.size(), 1U);
    EXPECT_EQ(warnings(reading), std::vector<std::string>{each.warning});
    if (std::string(each.line).find("JIS") == std::string::npos) {
      EXPECT_EQ(reading.entries[0].person.lastName, each.name);
    }
  }
}

TEST_F(VCardTextTest, EscapesAreThoseOfTheVersion) {
  EXPECT_EQ(lastName(card("3.0", {R"(N:A\;B\,C\\D\nE\:F;;;;)"})), "A;B,C\\D\nE:F");
  EXPECT_EQ(lastName(card("4.0", {R"(N:A\;B\,C\\D\NE;;;;)"})), "A;B,C\\D\nE");
  EXPECT_EQ(lastName(card("2.1", {R"(N:A\;B,C\D\nE;;;;)"})), R"(A;B,C\D\nE)");
}

TEST_F(VCardTextTest, QuotedParametersMayHoldSeparators) {
  const ABPerson person =
      texts_.person(card("4.0", {"N:Doe;;;;", "ADR;LABEL=\"Main St: 1; Town\":;;1 Main St;Town;;;",
                                 "TEL;VALUE=uri;TYPE=\"work,cell\":tel:+1-555-555-0100"}));
  ASSERT_EQ(person.addresses.size(), 1U);
  EXPECT_EQ(person.addresses[0].street, "1 Main St");
  EXPECT_EQ(person.phones, (std::vector<ABLabeledText>{{"_$!<Mobile>!$_", "+1-555-555-0100"}}));
}

TEST_F(VCardTextTest, LinesPastTheLimitAreCutAndTold) {
  const std::string text =
      card("3.0", {"NOTE:" + std::string(600000, 'x'), "N:" + std::string(60, 'd') + ";;;;",
                   "UID:1", " " + std::string(600000, '2'), "TEL:1234567"});
  const VCardReading reading = texts_.read(text, /*mostBytesOfLine=*/40);
  ASSERT_EQ(reading.entries.size(), 1U);
  EXPECT_EQ(reading.entries[0].person.lastName, std::string(38, 'd'));
  EXPECT_EQ(reading.entries[0].person.guid, "1" + std::string(35, '2'));
  EXPECT_EQ(reading.entries[0].person.phones.size(), 1U);
  EXPECT_EQ(warnings(reading),
            (std::vector<std::string>{"3: the line is too long; its end is left out",
                                      "4: the line is too long; its end is left out",
                                      "5: the line is too long; its end is left out"}));
}

}  // namespace
}  // namespace zephyl::linux_host
