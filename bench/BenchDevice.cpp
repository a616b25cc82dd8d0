#include "bench/BenchDevice.h"

#include <cstdint>
#include <utility>
#include <vector>

#include "platform/Host.h"
#include "platform/foundation/PropertyListFile.h"
#include "platform/foundation/SystemLog.h"

#include "hosts/common/FilteredConversationList.h"
#include "hosts/linux/LinuxDispatch.h"
#include "model/TestGroups.h"

namespace zephyl::bench {

namespace {

// The same numbers in every run.
class Numbers {
 public:
  explicit Numbers(std::uint32_t seed) : state_(seed) {}
  // From 0 to `limit` - 1.
  std::uint32_t below(std::uint32_t limit) {
    state_ = state_ * 1'664'525U + 1'013'904'223U;
    return static_cast<std::uint32_t>(static_cast<std::uint64_t>(state_) * limit >> 32U);
  }

 private:
  std::uint32_t state_;
};

constexpr std::uint32_t kPeople = 20'000;

std::string addressOf(std::uint32_t person) {
  std::string digits = std::to_string(10'000'000U + person);
  return person % 5 == 0 ? "person" + digits + "@example.com" : "+1555" + digits.substr(1);
}

bool isKnown(std::uint32_t person) {
  return person % 5 < 3;
}

IMHandle handleOf(std::uint32_t person) {
  return isKnown(person)
             ? IMHandle::withPerson(addressOf(person), static_cast<std::int32_t>(person) + 1)
             : IMHandle(addressOf(person));
}

std::string guidOf(std::size_t conversation) {
  return "iMessage;+;chat" + std::to_string(100'000'000 + conversation);
}

Value inventedMember(Numbers& numbers, std::size_t conversations) {
  if (numbers.below(10) == 0) {
    return guidOf(numbers.below(static_cast<std::uint32_t>(conversations)));
  }
  const std::uint32_t person = numbers.below(kPeople);
  return isKnown(person) ? Value(static_cast<std::int64_t>(person) + 1) : Value(addressOf(person));
}

class NoLog : public SystemLog {
 public:
  void log(const std::string& /*line*/) override {}
};

// As the programs ask.
bool ruleShows(const ZephylRef& group, const CKConversationRef& conversation) {
  return ZephylsDataController::sharedInstance()->isConversationMemberOfGroup(group, conversation,
                                                                              host().addressBook());
}

}  // namespace

CKConversationArray inventedConversations(std::size_t count) {
  Numbers numbers(1);
  CKConversationArray conversations;
  conversations.reserve(count);
  for (std::size_t index = 0; index < count; ++index) {
    CKConversation::Facts facts;
    facts.guid = guidOf(index);
    facts.isGroupConversation = numbers.below(10) == 0;
    facts.hasUnreadMessages = numbers.below(20) == 0;
    const std::uint32_t handles = facts.isGroupConversation ? 3 + numbers.below(8) : 1;
    for (std::uint32_t handle = 0; handle < handles; ++handle) {
      facts.handles.push_back(handleOf(numbers.below(kPeople)));
    }
    conversations.push_back(std::make_shared<CKConversation>(std::move(facts)));
  }
  return conversations;
}

Array inventedGroups(std::size_t count, std::size_t conversations) {
  Numbers numbers(2);
  Array groups;
  groups.reserve(count);
  for (std::size_t index = 0; index < count; ++index) {
    Array members;
    while (members.size() < 20) {
      members.push_back(inventedMember(numbers, conversations));
    }
    const auto number = static_cast<std::int64_t>(index) + 1;
    test::GroupBuilder group(number, "Group " + std::to_string(number));
    group.members(std::move(members)).with(keys::kMarkerCode, "ff8800ff");
    // As every group that was ever saved has one.
    group.with(keys::kMaskedMessage, "New message");
    groups.emplace_back(index == 0 ? group.active() : group);
  }
  return groups;
}

BenchDevice::BenchDevice(std::size_t conversations, std::size_t groups,
                         linux_host::DeviceOptions options) {
  auto list = std::make_unique<FilteredConversationList>();
  list->setShows(ruleShows);
  list->setConversations(inventedConversations(conversations));
  options.deviceRoot = root_.path();
  options.systemLog = std::make_unique<NoLog>();
  options.conversationList = std::move(list);
  device_ = std::make_unique<linux_host::LinuxDevice>(std::move(options));
  install(*device_);
  writeToFile(inventedGroups(groups, conversations + 1), kGroupsFilePath);
}

linux_host::DeviceOptions BenchDevice::fileMode() {
  linux_host::DeviceOptions options;
  options.systemVersion = "11.0";
  return options;
}

BenchDevice::~BenchDevice() {
  uninstall();
}

void BenchDevice::settle() {
  device_->queues().runMainUntilIdle();
}

std::string BenchDevice::groupsFile() const {
  return root_.path() + kGroupsFilePath;
}

}  // namespace zephyl::bench
