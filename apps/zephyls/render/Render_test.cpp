// `zephyls render` as a user runs it.

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include "apps/zephyls/ProgramTest.h"
#include "apps/zephyls/render/Specimens.h"
#include "hosts/linux/testing/ChildProcess.h"

namespace zephyl::app::test {
namespace {

using Texts = std::vector<std::string>;

class RenderTest : public ProgramTest {
 protected:
  struct Size {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
  };

  // Of a PNG file; zero for another.
  [[nodiscard]] Size sizeOf(const std::filesystem::path& file) const {
    const std::string bytes = read(file);
    if (bytes.size() < 24 || bytes.compare(1, 3, "PNG") != 0) {
      return {};
    }
    const auto number = [&bytes](std::size_t at) {
      std::uint32_t value = 0;
      for (std::size_t index = at; index < at + 4; ++index) {
        value = value << 8U | static_cast<unsigned char>(bytes[index]);
      }
      return value;
    };
    return {number(16), number(20)};
  }
  // Qt keeps a folder of its own beside them.
  [[nodiscard]] static std::ptrdiff_t copiesIn(const std::filesystem::path& folder) {
    return std::count_if(std::filesystem::directory_iterator(folder), {}, [](const auto& entry) {
      return entry.path().filename().string().starts_with("zephyls-render-");
    });
  }
  [[nodiscard]] std::string path(const char* name) const { return (folder_ / name).string(); }
};

TEST_F(RenderTest, WithoutAComponentAllAreListed) {
  const auto result = run({"render", "--json"});
  EXPECT_EQ(result.status, 0) << result.errors;
  Texts names;
  for (const auto& object : result.objects()) {
    names.push_back(object["name"]);
    EXPECT_NE(object["help"], "");
  }
  Texts expected = {"groups",    "manage",   "add",    "recipients",    "editor",
                    "new-group", "contacts", "search", "conversations", "colour"};
  for (const auto& specimen : render::allSpecimens()) {
    expected.emplace_back(specimen.name);
  }
  EXPECT_THAT(names, testing::IsSupersetOf(expected));
  EXPECT_NE(run({"render"}).out.find("row-cell "), std::string::npos);
}

TEST_F(RenderTest, AnUnknownComponentIsWrongUsageAndTheKnownOnesAreTold) {
  const auto result = run({"render", "dragon", "-o", path("dragon.png")});
  EXPECT_EQ(result.status, 2);
  EXPECT_NE(result.errors.find("there is no screen or component \"dragon\""), std::string::npos);
  EXPECT_NE(result.errors.find(" tile-cell"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(folder_ / "dragon.png"));
}

TEST_F(RenderTest, APictureIsAsManyPixelsAsTheScaleSays) {
  for (const auto& [scale, width] : {std::pair{"1", 390U}, {"1.5", 585U}, {"2", 780U}}) {
    ASSERT_EQ(run({"render", "switches", "--scale", scale, "-o", path("a.png")}).status, 0);
    EXPECT_EQ(sizeOf(folder_ / "a.png").width, width) << scale;
  }
  EXPECT_EQ(run({"render", "switches", "-o", path("b.png")}).status, 0);
  EXPECT_EQ(read(folder_ / "a.png"), read(folder_ / "b.png"));
}

TEST_F(RenderTest, AppearanceDirectionAndReleaseChangeThePicture) {
  const auto picture = [this](const Texts& words) {
    Texts all = {"render", "row-cell-managing", "--scale", "1", "-o", path("a.png")};
    all.insert(all.end(), words.begin(), words.end());
    EXPECT_EQ(run(all).status, 0);
    return read(folder_ / "a.png");
  };
  const std::string plain = picture({});
  EXPECT_EQ(picture({}), plain);
  EXPECT_NE(picture({"--dark"}), plain);
  EXPECT_NE(picture({"--rtl"}), plain);
  EXPECT_NE(run({"render", "tile-cell", "--tree", "--ios", "12.4"}).out,
            run({"render", "tile-cell", "--tree"}).out);
}

TEST_F(RenderTest, ReleasesWithoutADarkAppearanceAreShownInTheLightOne) {
  for (const char* what : {"row-cell-managing", "editor"}) {
    const auto picture = [&](const Texts& words) {
      Texts all = {"render", what, "--scale", "1", "-o", path("a.png")};
      all.insert(all.end(), words.begin(), words.end());
      const auto result = run(all);
      EXPECT_EQ(result.status, 0) << result.errors;
      return std::pair(read(folder_ / "a.png"), result.errors);
    };
    const auto [light, nothing] = picture({"--ios", "12.4"});
    const auto [wished, told] = picture({"--ios", "12.4", "--dark"});
    EXPECT_EQ(wished, light) << what;
    EXPECT_EQ(nothing, "");
    EXPECT_EQ(told, "zephyls: release 12.4 has no dark appearance; it is shown in the light one\n");
    EXPECT_NE(picture({"--ios", "13", "--dark"}).first, picture({"--ios", "13"}).first) << what;
  }
}

TEST_F(RenderTest, APictureGoesToTheStandardOutputForADash) {
  ASSERT_EQ(run({"render", "badge", "-o", path("a.png")}).status, 0);
  const auto result = run({"render", "badge", "-o", "-"});
  EXPECT_EQ(result.status, 0) << result.errors;
  EXPECT_EQ(result.out, read(folder_ / "a.png"));
  EXPECT_EQ(run({"render", "all", "-o", "-"}).status, 2);
  EXPECT_EQ(run({"render", "badge", "-o", "-"}, "/dev/full").status, 1);
}

// Nobody reads what it writes, so it stands still in the middle.
TEST_F(RenderTest, ASignalLeavesNoCopyBehind) {
  const std::string pipe = path("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
    ASSERT_EQ(fcntl(reader, F_SETFL, 0), 0);
    ASSERT_GT(fcntl(reader, F_SETPIPE_SZ, 4096), 0);
    const std::filesystem::path temporary = folder_ / ("tmp" + std::to_string(number));
    std::filesystem::create_directory(temporary);
    zephyl::test::ChildOptions options;
    options.environment = environment_;
    options.environment["TMPDIR"] = temporary.string();
    options.inheritsEnvironment = false;
    options.outputFile = pipe;
    zephyl::test::ChildProcess program({ZEPHYLS_PROGRAM, "render", "all", "--tree"}, options);
    char first = 0;
    ASSERT_EQ(::read(reader, &first, 1), 1);
    EXPECT_EQ(copiesIn(temporary), 1);
    program.signal(number);
    EXPECT_EQ(program.wait(std::chrono::minutes(2)), 1000 + number);
    EXPECT_EQ(copiesIn(temporary), 0) << number;
    close(reader);
  }
}

TEST_F(RenderTest, TheTreeIsTextOnTheStandardOutputOrInAFile) {
  const auto result = run({"render", "badge", "--tree"});
  EXPECT_EQ(result.status, 0) << result.errors;
  EXPECT_EQ(result.out.rfind("UIWindow", 0), 0U);
  EXPECT_NE(result.out.find("UIZPBadgeView #9876"), std::string::npos);
  EXPECT_EQ(run({"render", "badge", "--tree", "-o", path("tree.txt")}).out, "");
  EXPECT_EQ(read(folder_ / "tree.txt"), result.out);
}

TEST_F(RenderTest, AllGoIntoAFolderThatIsMade) {
  const auto result = run({"render", "all", "--scale", "0.5", "-o", path("new/pictures")});
  ASSERT_EQ(result.status, 0);
  EXPECT_NE(result.errors.find("the screens are left out"), std::string::npos) << result.errors;
  Texts names;
  for (const auto& entry : std::filesystem::directory_iterator(folder_ / "new/pictures")) {
    names.push_back(entry.path().filename().string());
    EXPECT_EQ(sizeOf(entry.path()).width, 195U) << names.back();
  }
  std::sort(names.begin(), names.end());
  Texts expected;
  for (const auto& specimen : render::allSpecimens()) {
    expected.push_back(std::string(specimen.name).append(".png"));
  }
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ(names, expected);
}

TEST_F(RenderTest, AFileOfThatNameIsReplacedAndOthersInTheFolderStay) {
  write(folder_ / "pictures/switches.png", "old");
  write(folder_ / "pictures/mine.txt", "mine");
  ASSERT_EQ(run({"render", "switches", "-o", path("pictures")}).status, 0);
  EXPECT_EQ(sizeOf(folder_ / "pictures/switches.png").width, 780U);
  EXPECT_EQ(read(folder_ / "pictures/mine.txt"), "mine");
}

TEST_F(RenderTest, WithoutAPlaceToWriteToNothingIsDrawn) {
  EXPECT_EQ(run({"render", "badge"}).status, 2);
  EXPECT_EQ(run({"render", "all"}).status, 2);
  write(folder_ / "file", "mine");
  const auto result = run({"render", "all", "-o", path("file")});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.errors.find(path("file")), std::string::npos);
  EXPECT_EQ(read(folder_ / "file"), "mine");
  EXPECT_EQ(run({"render", "badge", "-o", path("file/a.png")}).status, 1);
  EXPECT_EQ(read(folder_ / "file"), "mine");
}

TEST_F(RenderTest, FoldersThatAreMissingAreMade) {
  ASSERT_EQ(run({"render", "badge", "-o", path("missing/too/a.png")}).status, 0);
  EXPECT_EQ(sizeOf(folder_ / "missing/too/a.png").width, 780U);
  ASSERT_EQ(run({"render", "badge", "-o", path("folder/")}).status, 0);
  EXPECT_EQ(sizeOf(folder_ / "folder/badge.png").width, 780U);
}

TEST_F(RenderTest, APictureOfAnotherKindIsRefused) {
  for (const char* name : {"a.jpg", "a.JPEG", "a.svg"}) {
    const auto result = run({"render", "badge", "-o", path(name)});
    EXPECT_EQ(result.status, 2) << name;
    EXPECT_NE(result.errors.find("written as PNG only"), std::string::npos) << result.errors;
    EXPECT_FALSE(std::filesystem::exists(folder_ / name));
  }
  EXPECT_EQ(run({"render", "badge", "-o", path("badge-2.0")}).status, 0);
}

TEST_F(RenderTest, AFileThatIsReplacedKeepsItsMode) {
  namespace fs = std::filesystem;
  write(folder_ / "a.png", "old");
  const auto kMode = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read |
                     fs::perms::others_read;
  fs::permissions(folder_ / "a.png", kMode);
  ASSERT_EQ(run({"render", "badge", "-o", path("a.png")}).status, 0);
  EXPECT_EQ(fs::status(folder_ / "a.png").permissions(), kMode);
  ASSERT_EQ(run({"render", "badge", "-o", path("b.png")}).status, 0);
  EXPECT_EQ(fs::status(folder_ / "b.png").permissions(),
            fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(RenderTest, EmptyWordsAndOptionsOfNoUseAreWrongUsage) {
  const std::string file = path("a.png");
  for (const Texts& words :
       {Texts{"", "-o", file}, Texts{"-o", file}, Texts{"--tree"}, Texts{"badge", "-o", ""},
        Texts{"groups", "-o", file, "--tap", ""}, Texts{"groups", "-o", file, "--key", ""},
        Texts{"groups", "-o", file, "--group", "Family"},
        Texts{"editor", "-o", file, "--conversation", "Ann"},
        Texts{"badge", "-o", file, "--group", "Family"}, Texts{"badge", "-o", file, "--ios", "99"},
        Texts{"badge", "-o", file, "--ios", "5.1"}}) {
    Texts all = {"render"};
    all.insert(all.end(), words.begin(), words.end());
    const auto result = run(all);
    EXPECT_EQ(result.status, 2) << words.back();
    EXPECT_NE(result.errors, "");
    EXPECT_FALSE(std::filesystem::exists(file)) << words.back();
  }
  EXPECT_NE(run({"render", "badge", "--tree", "--ios", "99"}).errors.find("from 6 to 14"),
            std::string::npos);
}

TEST_F(RenderTest, NothingIsToldWhereAllIsWell) {
  EXPECT_EQ(run({"render", "row-cell", "--language", "ar", "-o", path("a.png")}).errors, "");
}

TEST_F(RenderTest, AScaleThatMakesNoPictureIsWrongUsage) {
  for (const char* scale : {"0", "-1", "100", "nan", "two"}) {
    EXPECT_EQ(run({"render", "badge", "--scale", scale, "-o", path("a.png")}).status, 2) << scale;
  }
}

TEST_F(RenderTest, NothingOfTheUsersIsReadOrWritten) {
  writeOwnSources();
  const auto sources = listing(folder_ / "source");
  // The folders for temporary files and the user's own are the same here.
  environment_["TMPDIR"] = folder_.string();
  environment_["XDG_RUNTIME_DIR"] = folder_.string();
  ASSERT_EQ(run({"render", "row-cell", "--tree"}).status, 0);
  EXPECT_EQ(listing(folder_ / "source"), sources);
  for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
    EXPECT_FALSE(entry.is_directory() && entry.path().filename() != "source") << entry.path();
  }
}

}  // namespace
}  // namespace zephyl::app::test
