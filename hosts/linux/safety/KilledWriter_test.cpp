#include <algorithm>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "hosts/linux/safety/KillAtRandom_testing.h"
#include "hosts/linux/safety/Safety_testing.h"

namespace zephyl::linux_host {
namespace {

class KilledWriterTest : public SafetyFixture {
 protected:
  // The number of lines, all of one save; -1 when they are not.
  static long linesOf(const std::string& contents) {
    std::istringstream stream(contents);
    std::string line;
    std::getline(stream, line);
    long lines = 0;
    const long count = std::count(contents.begin(), contents.end(), '\n') - 1;
    const std::string form = "line of " + std::to_string(count) + " " + std::string(300, 'x');
    while (std::getline(stream, line)) {
      lines += line == form ? 1 : 0;
    }
    return contents.starts_with("good\n") && contents.back() == '\n' && lines == count ? lines : -1;
  }
};

TEST_F(KilledWriterTest, LosesNothingThatWasAcknowledged) {
  long held = 0;
  int unheard = 0;
  const int killed = test::killAtRandom(
      {{ZEPHYLS_SAVER, real(), options().folder, options().notes}, [&](long acknowledged) {
         restart();
         const auto contents = read();
         const long lines = contents ? linesOf(*contents) : 0;
         // What an earlier save in flight left counts too, since it was read
         // again.
         held = std::max(held, acknowledged);
         // The save in flight may have come to its end without anybody hearing
         // of it.
         EXPECT_TRUE(lines == held || lines == held + 1) << lines << " lines, " << held << " held";
         unheard += lines > held ? 1 : 0;
         held = lines;
         EXPECT_FALSE(hasJournal());
       }});
  EXPECT_GE(killed, 100);
  // The next save clears up what the last program left.
  EXPECT_FALSE(write("good\n"));
  EXPECT_EQ(folder().copies().size(), CopyFolder::kMostCopies);
  RecordProperty("killed", killed);
  RecordProperty("unheard", unheard);
  RecordProperty("mended", static_cast<int>(log_.lines().size()));
}

}  // namespace
}  // namespace zephyl::linux_host
