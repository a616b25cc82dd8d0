// The texts that source code looks up.

#include "bundle/testing/LocalizedTexts.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace zephyl::test {
namespace {

constexpr std::string_view kHelper =
    "std::string zpLocalizedText(const std::string& key) {\n"
    "  return bundle->localizedStringForKey(key);\n"
    "}\n";

using Texts = std::vector<std::string>;

// As "text", with "|table" where it is not the table that is meant when none is named; what is
// unclear as "?place".
Texts textsOf(const std::vector<std::pair<std::string, std::string>>& files) {
  std::vector<SourceOutline> sources;
  sources.emplace_back("helper.cpp", kHelper);
  for (const auto& [name, source] : files) {
    sources.emplace_back(name, source);
  }
  const LocalizedTexts found = localizedTextsOf(sources);
  Texts texts;
  for (const LocalizedText& text : found.texts) {
    texts.push_back(text.table == "Localizable" ? text.text : text.text + "|" + text.table);
  }
  for (const std::string& place : found.unclear) {
    texts.push_back("?" + place);
  }
  return texts;
}

Texts textsOf(std::string_view source) {
  return textsOf({{"a.cpp", std::string(source)}});
}

TEST(LocalizedTexts, AreFoundInTheCall) {
  EXPECT_EQ(textsOf("void f() { setTitle(zpLocalizedText(\"Manage \"\n\"Groups\")); }"),
            Texts{"Manage Groups"});
  EXPECT_EQ(textsOf("void f() { b->localizedStringForKey(\"a\\n\\n\\\"b\\\"\", \"\"); }"),
            Texts{"a\n\n\"b\""});
}

TEST(LocalizedTexts, TellFileLineAndTable) {
  const std::vector<SourceOutline> sources = {
      {"a.cpp", "\nvoid f() {\n  b->localizedStringForKey(\"Done\", std::nullopt, \"UIKit\"); }"}};
  const LocalizedTexts found = localizedTextsOf(sources);
  EXPECT_EQ(found.texts, (std::vector<LocalizedText>{{"a.cpp", 3, "Done", "UIKit"}}));
  EXPECT_EQ(found.unclear, Texts());
}

TEST(LocalizedTexts, BothSidesOfAConditionCount) {
  EXPECT_EQ(textsOf("void f() { g(zpLocalizedText(mode == \"x\" ? \"is\" : \"are\")); }"),
            (Texts{"is", "are"}));
}

TEST(LocalizedTexts, ConstantsAreFollowed) {
  EXPECT_EQ(textsOf("constexpr char kOne[] = \"one\";\nvoid f() { g(zpLocalizedText(kOne)); }"),
            Texts{"one"});
  EXPECT_EQ(textsOf({{"a.h", "inline constexpr char kOne[] = \"one\";"},
                     {"b.cpp", "void f() { g(zpLocalizedText(a ? kOne : \"two\")); }"}}),
            (Texts{"one", "two"}));
}

TEST(LocalizedTexts, FunctionsThatHandOnAreFollowed) {
  EXPECT_EQ(textsOf("namespace {\nstd::string edit(int a, const char* b = nullptr) {\n"
                    "  return b == nullptr ? \"\" : zpLocalizedText(b);\n}\n"
                    "void report(const char* c) { edit(1, c); edit(2); edit(3, nullptr); }\n}\n"
                    "void f() { report(\"Error\"); }"),
            Texts{"Error"});
  EXPECT_EQ(textsOf("void f() { const auto localized = [](const char* key) {\n"
                    "  return zpLocalizedText(key); }; g(localized(\"Next\")); }"),
            Texts{"Next"});
}

TEST(LocalizedTexts, LocalFunctionsAreThoseOfTheirFile) {
  EXPECT_EQ(textsOf({{"a.cpp", "namespace { void show(const T& a) { zpLocalizedText(a); } }"},
                     {"b.cpp", "void f() { show(\"no key\"); }"}}),
            Texts());
  EXPECT_EQ(textsOf({{"a.cpp", "void show(const T& a) { zpLocalizedText(a); }"},
                     {"b.cpp", "void f() { show(\"key\"); }"}}),
            Texts{"key"});
}

TEST(LocalizedTexts, FunctionsThatHandOnKeepTheirTable) {
  EXPECT_EQ(textsOf("std::string system(const std::string& key) {\n"
                    "  return b->localizedStringForKey(key, std::nullopt, \"UIKit\");\n}\n"
                    "void f() { g(system(\"Done\")); }"),
            Texts{"Done|UIKit"});
}

TEST(LocalizedTexts, VariablesOfTheFunctionAreFollowed) {
  EXPECT_EQ(textsOf("void f() { const std::string key = a ? \"one\" : \"two\";\n"
                    "  g(zpLocalizedText(key)); }"),
            (Texts{"one", "two"}));
  EXPECT_EQ(
      textsOf("void f() { std::string key; if (a) { key = \"one\"; } else { key = \"two\"; }\n"
              "  g(zpLocalizedText(key)); }"),
      (Texts{"one", "two"}));
  EXPECT_EQ(textsOf("constexpr Row kRows[] = {{\"one\", 1}, {\"two\", 2}};\n"
                    "void f() { for (const Row& row : kRows) { g(zpLocalizedText(row.title)); } }"),
            (Texts{"one", "two"}));
}

TEST(LocalizedTexts, ListsThatAreGivenToAFunctionAreFollowed) {
  EXPECT_EQ(textsOf("void all(const Keys& keys) {\n"
                    "  for (const std::string& key : keys) { zpLocalizedText(key); } }\n"
                    "void f() { all({\"one\", \"two\"}); }"),
            (Texts{"one", "two"}));
}

TEST(LocalizedTexts, WhatCannotBeToldIsUnclear) {
  EXPECT_EQ(textsOf("void f() {\n  g(zpLocalizedText(title_)); }"),
            Texts{"?a.cpp:2: zpLocalizedText ( title_ )"});
  EXPECT_EQ(textsOf("void f() { g(zpLocalizedText(h(\"x\"), 1)); zpLocalizedText(name()); }"),
            (Texts{"x", "?a.cpp:1: zpLocalizedText ( name ( ) )"}));
  EXPECT_EQ(textsOf("void f() { b->localizedStringForKey(\"x\", \"\", table); }"),
            Texts{"?a.cpp:1: localizedStringForKey ( x ,  , table )"});
}

TEST(LocalizedTexts, DeclarationsAndCommentsAreNoCalls) {
  EXPECT_EQ(textsOf("std::string zpLocalizedText(const std::string& key);\n"
                    "// zpLocalizedText(\"x\")\n"),
            Texts());
}

}  // namespace
}  // namespace zephyl::test
