// What the system shell answers, as other processes see it.

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <csignal>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/foundation/NSKeyedArchive.h"
#include "platform/foundation/PropertyList.h"
#include "platform/uikit/UIImage.h"

#include "apps/springboard/ShellTest.h"
#include "apps/springboard/TestPictures.h"

namespace zephyl::app::test {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

Array groupsTitled(const std::string& title, std::size_t count = 1) {
  Array groups;
  for (std::size_t i = 0; i < count; ++i) {
    groups.emplace_back(
        Dictionary{{"identifier", static_cast<std::int64_t>(i + 1)}, {"title", title}});
  }
  return groups;
}

std::string groupsFile() {
  return kGroupsFilePath;
}

class ShellAnswersTest : public ShellTest {
 protected:
  [[nodiscard]] std::optional<Array> savedGroups() const {
    const PropertyListResult list = readPropertyList(contentOf(device_ + groupsFile()));
    return list.ok() && list.value().ifArray() != nullptr ? std::optional(*list.value().ifArray())
                                                          : std::nullopt;
  }

  static Array manyGroups() { return groupsTitled(std::string(100, 'x'), 5'000); }

  // Sent, and not waited for; the bus has passed it on when this returns.
  QDBusPendingCall save(const Array& groups) {
    QDBusPendingCall pending = askLater(kSaveGroupsMessage, groups);
    EXPECT_TRUE(connection_->flush(kLong));
    return pending;
  }
  void expectSaved(QDBusPendingCall pending, const Array& groups) {
    pending.waitForFinished();
    EXPECT_EQ(pending.reply().signature().toStdString(), linux_host::kReplySignature);
    EXPECT_TRUE(savedGroups() == groups);
    EXPECT_FALSE(isServed());
  }
};

TEST_F(ShellAnswersTest, GroupsAreReadAndSaved) {
  const auto shell = start();
  EXPECT_EQ(ask(kGetGroupsMessage), Dictionary());
  const Array groups = groupsTitled("Work");
  EXPECT_EQ(ask(kSaveGroupsMessage, Value(groups)), saying(true));
  EXPECT_EQ(savedGroups(), groups);
  EXPECT_EQ(ask(kGetGroupsMessage), saying(groups));
  EXPECT_EQ(ask(kSaveGroupsMessage, Value(Array())), saying(true));
  EXPECT_EQ(ask(kGetGroupsMessage), saying(Array()));
  EXPECT_THAT(shellLog(), IsEmpty());
  EXPECT_THAT(log_.lines(), IsEmpty());
}

TEST_F(ShellAnswersTest, PicturesAreTakenInAndHandedOut) {
  const auto shell = start();
  const std::string path = std::string(kGroupPicturesDirectory) + "/7.png";
  const Data picture = zephyl::test::fileOf(zephyl::test::noise(20, 10), "PNG");
  const Data request =
      archivedData(Dictionary{{"image", archivableImage(UIImage(picture))}, {"path", path}});
  EXPECT_EQ(ask(kServiceMessageData, Value(path)), Dictionary());
  EXPECT_EQ(ask(kServiceMessageData, Value("")), Dictionary());
  EXPECT_EQ(ask(kSaveImageMessage, Value(request)), saying(true));
  const auto reply = ask(kServiceMessageData, Value(path));
  ASSERT_TRUE(reply.has_value());
  const Value archive = (*reply)[kServiceMessageData];
  ASSERT_NE(archive.ifData(), nullptr);
  const UIImageRef image = unarchivedImage(*archive.ifData());
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(Data(image->file().begin(), image->file().end()), picture);
}

TEST_F(ShellAnswersTest, WhatMakesNoSenseIsAnsweredNoWithALine) {
  const auto shell = start();
  ASSERT_EQ(ask(kSaveGroupsMessage, Value(groupsTitled("Work"))), saying(true));
  EXPECT_EQ(ask(kSaveGroupsMessage, Value("text")), saying(false));
  EXPECT_EQ(ask(kSaveGroupsMessage), saying(false));
  EXPECT_EQ(ask(kSaveImageMessage, Value(Data{1, 2})), saying(false));
  EXPECT_EQ(ask("com.example.unknown"), std::nullopt);
  const std::string lines = shellLog();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 4) << lines;
  EXPECT_EQ(savedGroups(), groupsTitled("Work"));
}

TEST_F(ShellAnswersTest, AFileOfGroupsThatIsNoneGivesNoGroups) {
  folder_.put("/device" + groupsFile(), "nonsense");
  const auto shell = start();
  EXPECT_EQ(ask(kGetGroupsMessage), Dictionary());
  EXPECT_THAT(shellLog(), HasSubstr("com.vantor.zephyls-profiles.plist"));
}

TEST_F(ShellAnswersTest, ASaveWhoseShellIsToldToEndIsFinished) {
  const auto shell = start();
  const QDBusPendingCall pending = save(manyGroups());
  shell->signal(SIGTERM);
  EXPECT_EQ(shell->wait(kLong), 0);
  expectSaved(pending, manyGroups());
}

// Which of the two the shell sees first is left to chance, so it is tried several times.
TEST_F(ShellAnswersTest, ASaveThatWaitsWhenTheShellIsToldToEndIsMade) {
  for (const char* title : {"One", "Two", "Three", "Four", "Five", "Six", "Seven", "Eight"}) {
    const auto shell = start();
    shell->signal(SIGSTOP);
    const QDBusPendingCall pending = save(groupsTitled(title));
    shell->signal(SIGTERM);
    shell->signal(SIGCONT);
    EXPECT_EQ(shell->wait(kLong), 0);
    expectSaved(pending, groupsTitled(title));
  }
}

}  // namespace
}  // namespace zephyl::app::test
