// A Linux device with many conversations and groups, installed for as long as it lives. Everything
// invented is the same in every run.
//
// Main thread.

#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "platform/chatkit/CKConversation.h"
#include "platform/foundation/Value.h"

#include "hosts/contract/TemporaryFolder.h"
#include "hosts/linux/LinuxDevice.h"
#include "store/ZephylsDataController.h"

namespace zephyl::bench {

// One in ten a group of three to ten; four fifths of the addresses numbers; three fifths known.
[[nodiscard]] CKConversationArray inventedConversations(std::size_t count);

// User groups of 20 members: record ids, numbers, e-mail addresses and chat GUIDs that occur among
// `conversations` conversations. The first is the active one.
[[nodiscard]] Array inventedGroups(std::size_t count, std::size_t conversations);

class BenchDevice {
 public:
  // The store reads and writes the groups file itself, unless `options` (the version is 11.0) say
  // otherwise.
  BenchDevice(std::size_t conversations, std::size_t groups,
              linux_host::DeviceOptions options = fileMode());
  ~BenchDevice();
  BenchDevice(const BenchDevice&) = delete;
  BenchDevice& operator=(const BenchDevice&) = delete;

  [[nodiscard]] linux_host::LinuxDevice& device() { return *device_; }
  [[nodiscard]] static std::shared_ptr<ZephylsDataController> store() {
    return ZephylsDataController::sharedInstance();
  }
  [[nodiscard]] static linux_host::DeviceOptions fileMode();

  // Until nothing waits any more.
  void settle();

  // A place for the files of peers, on the same disk.
  [[nodiscard]] std::string peerFile() const { return root_.path() + "/peer"; }
  [[nodiscard]] std::string groupsFile() const;

 private:
  contract::TemporaryFolder root_;
  std::unique_ptr<linux_host::LinuxDevice> device_;
};

}  // namespace zephyl::bench
