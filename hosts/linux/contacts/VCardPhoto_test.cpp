// The pictures of vCards, which are fetched from their file when they are wanted.

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/linux/contacts/ContactSamples.h"

namespace zephyl::linux_host {
namespace {

using Strings = std::vector<std::string>;

class VCardPhotoTest : public ::testing::Test {
 protected:
  ABPerson last(const std::string& text) const { return texts_.read(text).entries.back().person; }

  VCardTexts texts_;
};

TEST_F(VCardPhotoTest, PicturesAreReadInAllTheirForms) {
  const std::vector<std::pair<std::string, Strings>> cases = {
      {"3.0", {"PHOTO;ENCODING=b;TYPE=PNG:" + kPictureBase64}},
      {"3.0", {"PHOTO;ENCODING=b;TYPE=PNG:iVBORw0K", " GgowMTIzNDU2", " Nzg5"}},
      {"3.0", {"PHOTO;BASE64:iVBORw0KG", "  gowMTIzNDU2Nzg5"}},
      {"2.1", {"PHOTO;PNG;ENCODING=BASE64:", "iVBORw0KGgowMTIz", "NDU2Nzg5", ""}},
      {"2.1", {"PHOTO;BASE64;PNG:", "    iVBORw0KGgowMTIz", "    NDU2Nzg5", ""}},
      {"4.0", {"PHOTO:data:image/png;base64," + kPictureBase64}},
      {"4.0", {"PHOTO;MEDIATYPE=image/png:data:image/png;base64\\," + kPictureBase64}},
      {"4.0", {"PHOTO;VALUE=uri:DATA:image/png,%89PNG%0D%0A%1a%0A0123456789"}},
  };
  for (const auto& [version, lines] : cases) {
    const ABPerson person = texts_.person(card(version, lines));
    EXPECT_EQ(picture(person.fullSizeImage), kPictureBytes) << lines[0];
    EXPECT_EQ(picture(person.thumbnailImage), kPictureBytes);
  }
}

TEST_F(VCardPhotoTest, PicturesAreFoundBehindMarksAndInUtf16) {
  const std::string text = card("3.0", {"NOTE:" + std::string(300000, '\xC3')}) +
                           card("3.0", {"N:D;;;;", "PHOTO;ENCODING=b:" + kPictureBase64});
  EXPECT_EQ(picture(last("\xEF\xBB\xBF" + text).fullSizeImage), kPictureBytes);
  std::string wide = "\xFE\xFF";
  for (const char c : text) {
    wide += {'\0', c};
  }
  EXPECT_EQ(picture(last(wide).fullSizeImage), kPictureBytes);
}

TEST_F(VCardPhotoTest, EachPersonHasThePictureOfTheOwnCard) {
  const VCardReading reading =
      texts_.read(card("3.0", {"PHOTO;ENCODING=b:QQ=="}) + card("3.0", {"N:Doe;;;;"}) +
                  card("3.0", {"PHOTO;ENCODING=b:Qg=="}));
  ASSERT_EQ(reading.entries.size(), 3U);
  EXPECT_EQ(picture(reading.entries[0].person.fullSizeImage), "A");
  EXPECT_FALSE(reading.entries[1].person.fullSizeImage);
  EXPECT_FALSE(reading.entries[1].person.thumbnailImage);
  EXPECT_EQ(picture(reading.entries[2].person.fullSizeImage), "B");
  EXPECT_EQ(picture(reading.entries[0].person.fullSizeImage), "A");
}

TEST_F(VCardPhotoTest, AChangedFileGivesNoPicture) {
  const ABPerson person = last(card("3.0", {"PHOTO;ENCODING=b:QQ=="}));
  writeFile(texts_.file(), card("3.0", {"PHOTO;ENCODING=b:QUJD"}));
  EXPECT_EQ(picture(person.fullSizeImage), "");
  std::filesystem::remove(texts_.file());
  EXPECT_EQ(picture(person.fullSizeImage), "");
}

TEST_F(VCardPhotoTest, PicturesThatAreLeftOutAreTold) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"PHOTO;VALUE=uri:http://x.example/a.png",
       "3: PHOTO is kept elsewhere, is not fetched and is left out"},
      {"PHOTO;ENCODING=b:Q!==", "3: PHOTO is not proper base64 and is left out"},
      {"PHOTO;ENCODING=b:QUJDR", "3: PHOTO is not proper base64 and is left out"},
      {"PHOTO;ENCODING=b:Q===", "3: PHOTO is not proper base64 and is left out"},
  };
  for (const auto& [line, warning] : cases) {
    const VCardReading reading = texts_.read(card("3.0", {line}));
    EXPECT_EQ(withoutFile(reading.notes.warnings(), texts_.file()), Strings{warning});
    EXPECT_FALSE(reading.entries[0].person.fullSizeImage);
  }
  const VCardReading twice =
      texts_.read(card("3.0", {"PHOTO;ENCODING=b:QQ==", "PHOTO;ENCODING=b:Qg=="}));
  EXPECT_EQ(withoutFile(twice.notes.warnings(), texts_.file()),
            Strings{"4: PHOTO comes a second time and is left out"});
  EXPECT_EQ(picture(twice.entries[0].person.fullSizeImage), "A");
}

}  // namespace
}  // namespace zephyl::linux_host
