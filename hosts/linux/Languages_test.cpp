#include "hosts/linux/Languages.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zephyl::linux_host {
namespace {

using ::testing::ElementsAre;

TEST(Languages, LocaleNamesBecomeTags) {
  struct Case {
    const char* name;
    const char* tag;
  };
  for (const auto& [name, tag] : {Case{"de_DE.UTF-8", "de-DE"},
                                  Case{"de_DE.UTF-8@euro", "de-DE"},
                                  Case{"de", "de"},
                                  Case{"DE-de", "de-DE"},
                                  Case{"fil_PH", "fil-PH"},
                                  Case{"es_419", "es-419"},
                                  Case{"zh_CN.UTF-8", "zh-Hans-CN"},
                                  Case{"zh_TW", "zh-Hant-TW"},
                                  Case{"zh_HK.Big5", "zh-Hant-HK"},
                                  Case{"zh", "zh-Hans"},
                                  Case{"zh-Hant", "zh-Hant"},
                                  Case{"zh_Hans_CN", "zh-Hans-CN"},
                                  Case{"sr_RS@latin", "sr-Latn-RS"},
                                  Case{"uz_UZ@cyrillic", "uz-Cyrl-UZ"},
                                  Case{"C", ""},
                                  Case{"C.UTF-8", ""},
                                  Case{"POSIX", ""},
                                  Case{"", ""},
                                  Case{"_DE", ""},
                                  Case{"de_", "de"},
                                  Case{"de_DE_AT", ""},
                                  Case{"../../etc", ""},
                                  Case{"de_/../x", ""}}) {
    EXPECT_EQ(languageTag(name), tag) << name;
  }
}

TEST(Languages, TheScriptDecidesTheDirectionElseTheLanguage) {
  for (const char* tag : {"ar", "ar-EG", "he", "FA-ir", "ur", "az-Arab-IR", "yi"}) {
    EXPECT_TRUE(isRightToLeft(tag)) << tag;
  }
  for (const char* tag : {"", "en", "de-DE", "ja", "zh-Hans", "ur-Latn", "arn", "-"}) {
    EXPECT_FALSE(isRightToLeft(tag)) << tag;
  }
}

TEST(Languages, WhatWasRequestedWins) {
  EXPECT_THAT(preferredLanguages({.requested = "fr,de_AT:fr", .lcAll = "it_IT"}),
              ElementsAre("fr", "de-AT"));
}

TEST(Languages, ARequestThatNamesNoLanguageLeavesItToTheEnvironment) {
  EXPECT_THAT(preferredLanguages({.requested = "1,!", .lang = "it_IT"}), ElementsAre("it-IT"));
}

TEST(Languages, TheLocaleIsTheFirstVariableThatIsSet) {
  EXPECT_THAT(preferredLanguages({.lcAll = "it_IT", .lcMessages = "fr_FR", .lang = "de_DE"}),
              ElementsAre("it-IT"));
  EXPECT_THAT(preferredLanguages({.lcMessages = "fr_FR", .lang = "de_DE"}), ElementsAre("fr-FR"));
  EXPECT_THAT(preferredLanguages({.lang = "de_DE.UTF-8"}), ElementsAre("de-DE"));
}

TEST(Languages, TheListOfLanguagesComesBeforeTheLocale) {
  EXPECT_THAT(preferredLanguages({.lang = "de_DE", .language = "pt_BR:pt::de_DE"}),
              ElementsAre("pt-BR", "pt", "de-DE"));
  EXPECT_THAT(preferredLanguages({.lang = "C.UTF-8", .language = "pt_BR"}), ElementsAre("pt-BR"));
}

TEST(Languages, WithoutALocaleTheListOfLanguagesDoesNotCount) {
  EXPECT_THAT(preferredLanguages({.lcAll = "C", .lang = "de_DE", .language = "pt_BR"}),
              ElementsAre("en"));
  EXPECT_THAT(preferredLanguages({.language = "pt_BR"}), ElementsAre("en"));
}

TEST(Languages, ThereIsAlwaysOne) {
  EXPECT_THAT(preferredLanguages({}), ElementsAre("en"));
  EXPECT_THAT(preferredLanguages({.lang = "garbage!"}), ElementsAre("en"));
}

}  // namespace
}  // namespace zephyl::linux_host
