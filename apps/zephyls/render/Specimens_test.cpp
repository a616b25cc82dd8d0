#include "apps/zephyls/render/Specimens.h"

#include <set>
#include <string>

#include <gtest/gtest.h>

#include "apps/zephyls/render/Renderer.h"

namespace zephyl::app::render {
namespace {

TEST(Specimens, AreFoundByTheirNamesWhichDiffer) {
  std::set<std::string_view> names;
  for (const Specimen& specimen : allSpecimens()) {
    EXPECT_TRUE(names.insert(specimen.name).second) << specimen.name;
    EXPECT_EQ(specimen.name.find_first_not_of("abcdefghijklmnopqrstuvwxyz-"),
              std::string_view::npos)
        << specimen.name;
    ASSERT_NE(specimenNamed(specimen.name), nullptr);
    EXPECT_EQ(specimenNamed(specimen.name)->stage, specimen.stage);
  }
  EXPECT_EQ(specimenNamed("all"), nullptr);
  EXPECT_EQ(specimenNamed(""), nullptr);
}

// One device after the other in one process: nothing of the first may be left.
TEST(Specimens, ShowTheSameEachTime) {
  RenderSettings settings;
  settings.overlay = ZEPHYLS_OVERLAY;
  settings.scale = 1;
  for (const Specimen& specimen : allSpecimens()) {
    const std::string first = Renderer(settings).png(specimen);
    EXPECT_EQ(Renderer(settings).png(specimen), first) << specimen.name;
  }
}

TEST(Specimens, CanBeShownOnEveryKindOfDevice) {
  for (const char* version : {"7.1", "10.3", "12.4", "14.0"}) {
    RenderSettings settings;
    settings.overlay = ZEPHYLS_OVERLAY;
    settings.systemVersion = version;
    settings.rightToLeft = true;
    settings.dark = true;
    settings.languages = {"ar"};
    Renderer renderer(settings);
    for (const Specimen& specimen : allSpecimens()) {
      EXPECT_NE(renderer.tree(specimen).find('\n'), std::string::npos) << specimen.name;
    }
  }
}

}  // namespace
}  // namespace zephyl::app::render
