// The index of a list of people, with the entry for searching.

#include "ui/people/LRIndexedCollationWithSearch.h"

#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/uikit/tables/UITableViewProtocols.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

using ::testing::ElementsAre;

std::string textOf(const std::string& text) {
  return text;
}

class CollationWithSearch : public ::testing::Test {
 protected:
  CollationWithSearch() {
    device_.collation().setSectionTitles({"A", "B"});
    own_ = UILocalizedIndexedCollation::currentCollation();
    collation_ = LRIndexedCollationWithSearch::currentCollation();
  }

  fake::Device device_;
  std::shared_ptr<UILocalizedIndexedCollation> own_;
  std::shared_ptr<LRIndexedCollationWithSearch> collation_;
};

TEST_F(CollationWithSearch, TheIndexBeginsWithTheMagnifyingGlass) {
  EXPECT_THAT(collation_->sectionTitles(), ElementsAre("A", "B", "#"));
  EXPECT_THAT(collation_->sectionIndexTitles(), ElementsAre("{search}", "A", "B", "#"));
  EXPECT_EQ(collation_->sectionIndexTitles().front(), UITableViewIndexSearch);
}

TEST_F(CollationWithSearch, EntriesLeadToTheSectionsBehindTheGlass) {
  EXPECT_EQ(collation_->sectionForSectionIndexTitleAtIndex(0), NSNotFound);
  EXPECT_EQ(NSNotFound, 0x7FFFFFFFFFFFFFFF);
  for (std::int64_t i = 1; i < 4; ++i) {
    EXPECT_EQ(collation_->sectionForSectionIndexTitleAtIndex(i),
              own_->sectionForSectionIndexTitleAtIndex(i - 1));
    EXPECT_EQ(collation_->sectionForSectionIndexTitleAtIndex(i), i - 1);
  }
}

TEST_F(CollationWithSearch, SectionsAndOrderAreThoseOfTheCollation) {
  EXPECT_EQ(collation_->sectionForObject(std::string("bob"), textOf), 1);
  EXPECT_EQ(collation_->sectionForObject(std::string("?"), textOf), 2);
  std::vector<std::shared_ptr<std::string>> texts;
  for (const char* text : {"b", "A", "a", "B"}) {
    texts.push_back(std::make_shared<std::string>(text));
  }
  const auto sorted = collation_->sortedArrayFromArray(texts, textOf);
  EXPECT_THAT(sorted, ElementsAre(texts[1], texts[2], texts[0], texts[3]));
  EXPECT_EQ(own_->sortedArrayFromArray(texts, textOf), sorted);
}

}  // namespace
}  // namespace zephyl
