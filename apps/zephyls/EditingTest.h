// The fixture of the tests that change groups: on the small sources of ProgramTest, as both kinds
// of release.

#pragma once

#include <string>
#include <utility>
#include <vector>

#include "apps/zephyls/ProgramTest.h"

namespace zephyl::app::test {

// A picture of one pixel, as PNG and as BMP.
[[nodiscard]] std::string onePixelPng();
[[nodiscard]] std::string onePixelBmp();

class EditingTest : public ProgramTest {
 protected:
  using Json = nlohmann::ordered_json;
  using Texts = std::vector<std::string>;

  EditingTest() { writeOwnSources(); }

  // `zephyls groups WORDS...`
  [[nodiscard]] ProgramResult groups(Texts words) const {
    words.insert(words.begin(), {"--ios", release_, "groups"});
    return runOwn(std::move(words));
  }
  // As that, expected to succeed.
  ProgramResult change(Texts words) const {
    ProgramResult result = groups(std::move(words));
    EXPECT_EQ(result.status, 0) << result.errors;
    return result;
  }
  // The first object that a command prints.
  [[nodiscard]] Json changed(Texts words) const {
    words.emplace_back("--json");
    const auto objects = change(std::move(words)).objects();
    return objects.empty() ? Json() : objects.front();
  }
  // As `groups show` tells of it.
  [[nodiscard]] Json group(const std::string& name) const { return changed({"show", name}); }
  [[nodiscard]] std::string identifierOf(const std::string& title) const {
    return group(title)["identifier"].dump();
  }
  [[nodiscard]] Texts titles() const {
    Texts result;
    for (const Json& one : change({"list", "--json"}).objects()) {
      if (!one["system"].get<bool>()) {
        result.push_back(one["title"]);
      }
    }
    return result;
  }
  // Expects a refusal that says `message`, and the groups file as it was.
  void expectRefused(const Texts& words, const std::string& message, int status = 1) const {
    const std::string before = read(groups_);
    const ProgramResult result = groups(words);
    EXPECT_EQ(result.status, status) << words.back() << ": " << result.errors;
    EXPECT_NE(result.errors.find(message), std::string::npos) << result.errors;
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(read(groups_), before) << words.back();
  }
  [[nodiscard]] std::filesystem::path pictures() const { return groups_.parent_path() / "Zephyls"; }

  std::string release_ = "14.0";
};

}  // namespace zephyl::app::test
