// A shell that is killed, at any moment, loses nothing that it has answered for.

#include <chrono>
#include <csignal>
#include <random>
#include <string>

#include "apps/springboard/ShellTest.h"

namespace zephyl::app::test {
namespace {

class ShellKilledTest : public ShellTest {
 protected:
  static Array groupsUpTo(long count) {
    Array groups;
    for (long number = 1; number <= count; ++number) {
      groups.emplace_back(
          Dictionary{{"identifier", number}, {"title", "Group " + std::to_string(number)}});
    }
    return groups;
  }
  [[nodiscard]] static bool saysYes(const QDBusMessage& reply) {
    return reply.signature() == linux_host::kReplySignature &&
           readPropertyList(reply.arguments().at(1).toByteArray().toStdString()).value() ==
               Value(Dictionary{{kServiceMessageData, true}});
  }

  // How many groups there are, all of them whole.
  long countStored() {
    const auto reply = ask(kGetGroupsMessage);
    if (!reply) {
      ADD_FAILURE() << shellLog();
      return -1;
    }
    const Value groups = (*reply)[kServiceMessageData];
    if (groups.ifArray() == nullptr) {
      return 0;
    }
    const long count = static_cast<long>(groups.ifArray()->size());
    EXPECT_EQ(groups, Value(groupsUpTo(count)));
    return count;
  }

  // Saves some more groups one by one and kills the shell in the middle of the last save; gives the
  // number of groups for which it has answered.
  long saveAndKill(ChildProcess& shell, long acknowledged, std::mt19937& random) {
    constexpr int kMostSaves = 3;
    constexpr int kLongestSave = 4000;  // microseconds
    for (auto more = std::uniform_int_distribution(0, kMostSaves)(random); more > 0; --more) {
      EXPECT_EQ(ask(kSaveGroupsMessage, groupsUpTo(acknowledged + 1)), saying(true));
      ++acknowledged;
    }
    const auto moment =
        std::chrono::steady_clock::now() +
        std::chrono::microseconds(std::uniform_int_distribution(0, kLongestSave)(random));
    QDBusPendingCall last = askLater(kSaveGroupsMessage, groupsUpTo(acknowledged + 1));
    EXPECT_TRUE(connection_->flush(kLong));
    while (std::chrono::steady_clock::now() < moment) {
    }
    shell.signal(SIGKILL);
    EXPECT_TRUE(shell.wait(kLong));
    last.waitForFinished();
    return saysYes(last.reply()) ? acknowledged + 1 : acknowledged;
  }
};

TEST_F(ShellKilledTest, LosesNothingThatItAnsweredFor) {
  constexpr int kKills = 200;
  constexpr auto kLimit = 20s;
  std::mt19937 random(19'700'101);  // NOLINT: the same moments each time
  const auto begin = std::chrono::steady_clock::now();
  auto shell = start();
  long acknowledged = 0;
  int killed = 0;
  int whole = 0;
  while (killed < kKills && !HasFailure() && std::chrono::steady_clock::now() - begin < kLimit) {
    const long before = acknowledged;
    acknowledged = saveAndKill(*shell, acknowledged, random);
    ++killed;
    shell = start();
    const long stored = countStored();
    EXPECT_GE(stored, acknowledged) << "after kill " << killed;
    EXPECT_LE(stored, acknowledged + 1) << "after kill " << killed;
    whole += stored > before ? 1 : 0;
    acknowledged = stored;
  }
  RecordProperty("kills", killed);
  EXPECT_GE(killed, 20);
  EXPECT_GT(whole, 0);
}

}  // namespace
}  // namespace zephyl::app::test
