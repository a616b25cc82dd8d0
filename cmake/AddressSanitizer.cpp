// Runs at the end of every executable that is built with AddressSanitizer, the programs that tests
// start included, before it looks for leaks. Qt waits for a thread of its own until that says it is
// done, which it does a moment before it lets go of what it holds; an end in that moment looks like
// a leak. So the end waits for the other threads to be gone, though never for long.

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <system_error>
#include <thread>

namespace {

bool isAlone() {
  std::error_code error;
  const std::filesystem::directory_iterator threads("/proc/self/task", error);
  return error || std::distance(begin(threads), end(threads)) <= 1;
}

void waitForThreads() {
  constexpr int kTries = 200;
  for (int once = 0; once < kTries && !isAlone(); ++once) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

// What is registered first runs last: before all that comes with the libraries is asked for.
__attribute__((constructor(101))) void waitAtTheEnd() {
  std::atexit(waitForThreads);
}

}  // namespace
