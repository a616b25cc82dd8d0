// A list that is scrolled, typed into, selected and changed at random shows what it would show if
// all of it was drawn anew, pixel for pixel.

#include <array>
#include <cstdint>
#include <string>

#include <gtest/gtest.h>

#include "hosts/linux/screen/ListUnderTest.h"

namespace zephyl::linux_host {
namespace {

// The same numbers in every run.
class Numbers {
 public:
  explicit Numbers(std::uint32_t seed) : state_(seed) {}
  // From 0 to `limit` - 1.
  std::int64_t below(std::int64_t limit) {
    state_ = state_ * 1'664'525U + 1'013'904'223U;
    return static_cast<std::int64_t>(
        static_cast<std::uint64_t>(state_) * static_cast<std::uint64_t>(limit) >> 32U);
  }

 private:
  std::uint32_t state_;
};

class RandomListTest : public ListTest, public ::testing::WithParamInterface<CGFloat> {
 protected:
  RandomListTest() {
    setScale(GetParam());
    window_->setNeedsLayout();
    window_->layoutWindow();
  }

  NSIndexPath anyVisibleRow() {
    const auto paths = table().indexPathsForVisibleRows();
    return paths.at(static_cast<std::size_t>(numbers_.below(std::ssize(paths))));
  }
  void scroll() {
    // Quarters of a point are whole pixels at some scales only.
    scrollBy(static_cast<CGFloat>(numbers_.below(400) - 200) / 4);
  }
  void jump() { table().setContentOffset({0, static_cast<CGFloat>(numbers_.below(3000))}); }
  void changeBadge() { badge_->setNumber(static_cast<int>(numbers_.below(2000))); }
  void changeText() {
    if (const auto cell = table().cellForRowAtIndexPath(anyVisibleRow())) {
      const auto length = static_cast<std::size_t>(numbers_.below(60));
      cell->textLabel()->setText(std::string(length, static_cast<char>('a' + numbers_.below(26))));
    }
  }
  void typeLetter() {
    std::string text = field_->text();
    type(text.size() > 50 ? "" : text + static_cast<char>('a' + numbers_.below(26)));
  }
  void select() {
    table().selectRowAtIndexPath(anyVisibleRow(), /*animated=*/false,
                                 UITableViewScrollPosition::kNone);
  }
  void deselect() {
    if (const auto path = table().indexPathForSelectedRow()) {
      table().deselectRowAtIndexPath(*path, /*animated=*/false);
    }
  }
  void showOrHideIndicator() {
    indicator().alpha() > 0 ? indicator().setAlpha(0) : indicator().show();
  }
  void changeSomething() {
    using Change = void (RandomListTest::*)();
    static constexpr std::array<Change, 11> kChanges = {&RandomListTest::scroll,
                                                        &RandomListTest::scroll,
                                                        &RandomListTest::scroll,
                                                        &RandomListTest::scroll,
                                                        &RandomListTest::jump,
                                                        &RandomListTest::changeBadge,
                                                        &RandomListTest::changeText,
                                                        &RandomListTest::typeLetter,
                                                        &RandomListTest::select,
                                                        &RandomListTest::deselect,
                                                        &RandomListTest::showOrHideIndicator};
    (this->*kChanges.at(static_cast<std::size_t>(numbers_.below(std::ssize(kChanges)))))();
  }

  Numbers numbers_{20};
};

TEST_P(RandomListTest, WhatIsBroughtUpToDateLooksDrawnAnew) {
  constexpr int kPictures = 150;
  update();
  std::int64_t moved = 0;
  for (int picture = 0; picture < kPictures; ++picture) {
    for (std::int64_t changes = numbers_.below(4); changes >= 0; --changes) {
      changeSomething();
      if (numbers_.below(2) == 0) {
        window_->layoutWindow();
      }
    }
    moved += update().moved;
    ASSERT_EQ(picture_.image(), fresh()) << picture;
  }
  // Else nothing is shown of moving.
  EXPECT_GT(moved, 0);
}

INSTANTIATE_TEST_SUITE_P(Scales, RandomListTest, ::testing::Values(1.0, 1.25, 2.0, 3.0));

}  // namespace
}  // namespace zephyl::linux_host
