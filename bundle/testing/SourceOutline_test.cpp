// The functions and constants of C++ source.

#include "bundle/testing/SourceOutline.h"

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace zephyl::test {
namespace {

// "name(a, b)" of each function, with "local " before it.
std::vector<std::string> functionsOf(std::string_view source) {
  std::vector<std::string> found;
  const SourceOutline outline("a.cpp", source);
  for (const SourceFunction& function : outline.functions()) {
    std::string text = function.isLocal ? "local " : "";
    text.append(function.name).append("(");
    for (const std::string& parameter : function.parameters) {
      text.append(text.ends_with('(') ? "" : ", ").append(parameter);
    }
    found.push_back(text.append(")"));
  }
  return found;
}

using Names = std::vector<std::string>;

TEST(SourceOutline, FunctionsHaveNamesAndParameters) {
  EXPECT_EQ(functionsOf("int f(int a, const std::string& b = \"x\") { if (a) { return 1; } }"),
            Names{"f(a, b)"});
  EXPECT_EQ(functionsOf("void C::f() const noexcept {} auto g(T x) -> std::vector<T> {}"),
            (Names{"f()", "g(x)"}));
}

TEST(SourceOutline, ConstructorsHaveInitializers) {
  EXPECT_EQ(functionsOf("C::C(std::string a, int b) : Base(x), a_(std::move(a)), b_{b} { f(); }"),
            Names{"C(a, b)"});
}

TEST(SourceOutline, LambdasAreNamedByTheirVariables) {
  EXPECT_EQ(functionsOf("void f() { const auto g = [&](int a) { h(); }; h([](int b) {}); }"),
            (Names{"f()", "local g(a)", "local (b)"}));
}

TEST(SourceOutline, FunctionsInANamelessNamespaceAreLocal) {
  EXPECT_EQ(functionsOf("namespace n { namespace { void f() {} } void g() {} }"),
            (Names{"local f()", "g()"}));
}

TEST(SourceOutline, ControlsAndInitializersAreNoFunctions) {
  EXPECT_EQ(functionsOf("struct S { int a; }; const int k[] = {1}; namespace n {}"), Names());
  EXPECT_EQ(functionsOf("void f() { for (;;) {} while (x) {} switch (y) { case 1: {} } }"),
            Names{"f()"});
}

TEST(SourceOutline, ConstantsHaveTheirTexts) {
  const SourceOutline outline(
      "a.cpp",
      "constexpr char kOne[] = \"one\";\n"
      "constexpr Row kRows[] = {{\"a\", 1}, {\"b\", 2}};\n"
      "const std::string kTwo{\"two\"}; constexpr int kThree = 3; f(kOne);");
  EXPECT_EQ(outline.constants().size(), 3U);
  EXPECT_EQ(outline.constants().at("kOne"), Names{"one"});
  EXPECT_EQ(outline.constants().at("kRows"), (Names{"a", "b"}));
  EXPECT_EQ(outline.constants().at("kTwo"), Names{"two"});
}

TEST(SourceOutline, SourceMayEndInTheMiddle) {
  EXPECT_EQ(functionsOf("}) { f(int a) {"), Names{"f(a)"});
  EXPECT_EQ(functionsOf("{"), Names());
  EXPECT_EQ(functionsOf(") : a(b) {"), Names());
  EXPECT_TRUE(SourceOutline("a.cpp", "kOne[").constants().empty());
}

}  // namespace
}  // namespace zephyl::test
