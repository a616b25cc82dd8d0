// Tells that a database was written, by whatever means: into the file or its log, by putting
// another file in its place, by deleting it and making it anew, by mounting the file system it lies
// on.
//
// Made, used and released on one thread with Qt's event loop, where the function is called, too.

#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>

namespace zephyl::linux_host {

struct WatcherDelays {
  // From the first sign of a change to the call; what happens meanwhile makes no further one.
  std::chrono::milliseconds settling{200};
  // Between looks at the files where the system gives no sign, as with files on a network.
  std::chrono::milliseconds polling{30'000};
};

class DatabaseWatcher {
 public:
  // The file need not exist, nor its folder. `changed` runs once for all changes of a while; what
  // happens to other files in the folder does not matter.
  DatabaseWatcher(const std::filesystem::path& database, std::function<void()> changed,
                  WatcherDelays delays = {});
  ~DatabaseWatcher();
  DatabaseWatcher(const DatabaseWatcher&) = delete;
  DatabaseWatcher& operator=(const DatabaseWatcher&) = delete;

  // Calls after the settling delay whether or not anything changes until then.
  void callAgain();

 private:
  class Signs;

  std::unique_ptr<Signs> signs_;
};

}  // namespace zephyl::linux_host
