// Files of vCards that are cut short, mixed up or no vCards at all.

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/linux/contacts/ContactSamples.h"

namespace zephyl::linux_host {
namespace {

using Strings = std::vector<std::string>;

class VCardDamageTest : public ::testing::Test {
 protected:
  struct Seen {
    Strings names;
    Strings warnings;
    Strings errors;
    friend bool operator==(const Seen&, const Seen&) = default;
    friend void PrintTo(const Seen& seen, std::ostream* out) {
      *out << ::testing::PrintToString(seen.names) << ::testing::PrintToString(seen.warnings)
           << ::testing::PrintToString(seen.errors);
    }
  };

  Seen see(const std::string& text) const {
    const VCardReading reading = texts_.read(text);
    Seen seen;
    for (const VCardEntry& entry : reading.entries) {
      seen.names.push_back(entry.person.compositeName.value_or("-"));
    }
    seen.warnings = withoutFile(reading.notes.warnings(), texts_.file());
    seen.errors = withoutFile(reading.notes.errors(), texts_.file());
    return seen;
  }

  VCardTexts texts_;
};

TEST_F(VCardDamageTest, CardsWithoutVersionFullNameOrEndAreRead) {
  EXPECT_EQ(see("BEGIN:VCARD\nN:Doe;;;;\nEND:VCARD\n"), (Seen{{"Doe"}, {}, {}}));
  EXPECT_EQ(see("BEGIN:VCARD\nN:Doe;;;;\n"),
            (Seen{{"Doe"}, {"1: the card that starts here has no END:VCARD"}, {}}));
  EXPECT_EQ(see("BEGIN:VCARD\nN:Doe;;;;\nBEGIN:VCARD\nN:Roe;;;;\nEND:VCARD"),
            (Seen{{"Doe", "Roe"}, {"1: the card that starts here has no END:VCARD"}, {}}));
}

TEST_F(VCardDamageTest, WhatIsNoCardIsTold) {
  EXPECT_EQ(see(""), (Seen{{}, {" the file is empty"}, {}}));
  EXPECT_EQ(see("\r\n \n"), (Seen{{}, {" the file is empty"}, {}}));
  EXPECT_EQ(
      see("hello\nworld\n"),
      (Seen{{}, {"1: text outside of a card is left out"}, {" there is no vCard in the file"}}));
  EXPECT_EQ(see("junk\n" + card("3.0", {"N:Doe;;;;", "no property", ":no name"}) + "more\njunk\n"),
            (Seen{{"Doe"},
                  {"1: text outside of a card is left out",
                   "5: the line is not a property and is left out",
                   "6: the line is not a property and is left out",
                   "8: text outside of a card is left out"},
                  {}}));
}

TEST_F(VCardDamageTest, UnknownVersionsAreReadAsTheUsualOne) {
  EXPECT_EQ(see(card("9.9", {R"(N:D\,oe;;;;)"})),
            (Seen{{"D,oe"}, {"2: VERSION is not known; the card is read as version 3.0"}, {}}));
}

TEST_F(VCardDamageTest, TheCardOfAnAgentIsPassedOver) {
  const std::string agent = "AGENT:\nBEGIN:VCARD\nN:Agent;;;;\nEND:VCARD\n";
  EXPECT_EQ(see("BEGIN:VCARD\nVERSION:2.1\n" + agent + "N:Doe;;;;\nEND:VCARD\n"),
            (Seen{{"Doe"}, {"4: the card of an agent inside a card is left out"}, {}}));
}

TEST_F(VCardDamageTest, ACardThatIsCutInItsPictureKeepsTheFieldsBeforeIt) {
  const std::string text =
      card("3.0", {"N:Doe;;;;", "TEL:1234567", "PHOTO;ENCODING=b;TYPE=JPEG:" + kPictureBase64});
  const std::size_t data = text.find(kPictureBase64);
  for (std::size_t end = data + 1; end <= data + kPictureBase64.size(); ++end) {
    const VCardReading reading = texts_.read(text.substr(0, end));
    ASSERT_EQ(reading.entries.size(), 1U) << end;
    EXPECT_EQ(reading.entries[0].person.phones.size(), 1U);
    EXPECT_FALSE(reading.entries[0].person.fullSizeImage) << end;
    EXPECT_EQ(withoutFile(reading.notes.warnings(), texts_.file()),
              Strings{"5: the card that starts at line 1 is cut short in the middle of PHOTO; the "
                      "fields before it are kept"});
  }
}

TEST_F(VCardDamageTest, AFileMayEndAnywhere) {
  const std::string text =
      card("2.1", {"N;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:M=C3=BC=", "ller;J;;;",
                   "PHOTO;BASE64:", " " + kPictureBase64, "", "TEL;CELL:1"}) +
      "\r\n" +
      card("3.0", {"item1.ADR;TYPE=\"a,b\":;;Stra\xC3\x9F"
                   "e;;;;",
                   "item1.X-ABADR:de"}) +
      card("4.0", {"FN;ALTID=1:\xF0\x9F\x98\x80", "PHOTO:data:image/png;base64," + kPictureBase64});
  for (std::size_t end = 0; end < text.size() - 2; ++end) {
    const VCardReading reading = texts_.read(text.substr(0, end));
    const std::string part = text.substr(0, end);
    std::size_t begun = 0;
    for (std::size_t at = 0; (at = part.find("BEGIN:VCARD", at)) != std::string::npos; ++at) {
      ++begun;
    }
    EXPECT_EQ(reading.entries.size(), begun) << end;
    // Only right between two cards nothing is amiss.
    const bool isWhole = part.ends_with("END:VCARD") || part.ends_with("END:VCARD\r") ||
                         part.ends_with("END:VCARD\r\n") || part.ends_with("END:VCARD\r\n\r") ||
                         part.ends_with("END:VCARD\r\n\r\n");
    EXPECT_EQ(reading.notes.empty(), isWhole) << end;
    for (const VCardEntry& entry : reading.entries) {
      if (entry.person.fullSizeImage) {
        EXPECT_EQ(picture(entry.person.fullSizeImage), kPictureBytes) << end;
      }
    }
  }
}

TEST_F(VCardDamageTest, AFaultInEveryLineIsToldAHundredTimesAndCounted) {
  const VCardReading reading = texts_.read(card("3.0", Strings(250, "no property")));
  const Strings warnings = reading.notes.warnings();
  ASSERT_EQ(warnings.size(), 101U);
  EXPECT_EQ(warnings.back(), "and 150 more");
}

TEST_F(VCardDamageTest, NotesAreOneLineOfTextEach) {
  const Seen seen = see(card("3.0", {"N;CHARSET=\x01\xFF\x1B[31m:Doe;;;;"}));
  ASSERT_EQ(seen.warnings.size(), 1U);
  EXPECT_EQ(seen.warnings[0], "3: N has the unknown character set ???[31m; read as UTF-8");
}

TEST_F(VCardDamageTest, AFileThatIsNotThereIsAnError) {
  const VCardReading reading = readVCards(texts_.folder().file("none.vcf"));
  EXPECT_EQ(reading.notes.errors(),
            Strings{texts_.folder().file("none.vcf") + ": there is no such file"});
  const VCardReading folder = readVCards(texts_.folder().path());
  EXPECT_EQ(folder.notes.errors(),
            Strings{texts_.folder().path().string() + ": this is not a regular file"});
}

}  // namespace
}  // namespace zephyl::linux_host
