#include "apps/zephyls/render/TemporaryFolder.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "apps/common/CommandError.h"

namespace zephyl::app::render {

namespace fs = std::filesystem;

namespace {

// While others may still write into it.
void removeForGood(const std::string& path) {
  constexpr int kTries = 100;
  std::error_code error;
  for (int once = 0; once < kTries && fs::exists(path, error); ++once) {
    fs::remove_all(path, error);
  }
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
  std::error_code error;
  const fs::path parent = fs::temp_directory_path(error);
  std::string pattern = (error ? fs::path("/tmp") : parent) / "zephyls-render-XXXXXX";
  if (::mkdtemp(pattern.data()) == nullptr) {
    throw CommandError("cannot make a folder for a while in " + parent.string() +
                       "; name another with TMPDIR");
  }
  path_ = pattern;
  cleanup_ = std::make_unique<SignalCleanup>([path = path_] { removeForGood(path); });
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

}  // namespace zephyl::app::render
