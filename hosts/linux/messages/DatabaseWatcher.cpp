#include "hosts/linux/messages/DatabaseWatcher.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QString>
#include <QTimer>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include <sys/stat.h>

#include "hosts/linux/messages/SourceFiles.h"

namespace zephyl::linux_host {
namespace {

// What a path leads to: device and number.
using Identity = std::pair<std::uint64_t, std::uint64_t>;

std::optional<Identity> identityOf(const std::filesystem::path& path) {
  struct stat status = {};
  if (::stat(path.c_str(), &status) != 0) {
    return std::nullopt;
  }
  return Identity(status.st_dev, status.st_ino);
}

}  // namespace

class DatabaseWatcher::Signs {
 public:
  Signs(std::filesystem::path database, std::function<void()> changed, const WatcherDelays& delays)
      : database_(std::move(database)), changed_(std::move(changed)), last_(database_) {
    settling_.setSingleShot(true);
    settling_.setInterval(delays.settling);
    polling_.setInterval(delays.polling);
    QObject::connect(&system_, &QFileSystemWatcher::fileChanged, &system_, [this] {
      watch();
      // Even if size and time are the same: a clock has its coarseness.
      callAgain();
    });
    QObject::connect(&system_, &QFileSystemWatcher::directoryChanged, &system_, [this] { look(); });
    QObject::connect(&polling_, &QTimer::timeout, &polling_, [this] { look(); });
    QObject::connect(&settling_, &QTimer::timeout, &settling_, [this] { call(); });
    polling_.start();
    look();
  }

  void callAgain() {
    isAskedFor_ = true;
    startSettling();
  }

 private:
  // A file that was replaced is no longer watched, and one that came is not watched yet. What
  // happened before it was watched shows in the files.
  void look() {
    watch();
    if (SourceFiles(database_) != last_) {
      startSettling();
    }
  }

  // Not begun anew by further signs: a file that is written all the time would never settle.
  void startSettling() {
    if (!settling_.isActive()) {
      settling_.start();
    }
  }

  void call() {
    SourceFiles now(database_);
    if (std::exchange(isAskedFor_, false) || now != last_) {
      last_ = std::move(now);
      changed_();
    }
  }

  // The folders tell of files that come and go, the files of what is written into them. A link is
  // watched at both ends, and of a folder that is missing the nearest above it.
  void watch() {
    const SourceFiles files(database_);
    std::set<std::filesystem::path> paths;
    for (const std::filesystem::path& file :
         {database_, files.database(), files.writeAheadLog(), files.rollbackJournal()}) {
      paths.insert(file);
      std::filesystem::path folder = file.parent_path();
      while (!identityOf(folder) && folder.has_relative_path()) {
        folder = folder.parent_path();
      }
      paths.insert(std::move(folder));
    }
    for (const std::filesystem::path& path : paths) {
      watch(path);
    }
  }

  // What bears the path now: a file that was replaced while its writer holds on to it stays watched
  // under its path, though nobody asks for it any more.
  void watch(const std::filesystem::path& path) {
    const auto identity = identityOf(path);
    const QString name = QString::fromStdString(path.string());
    const bool isWatched = system_.files().contains(name) || system_.directories().contains(name);
    const auto [watched, isNew] = watched_.try_emplace(path);
    if (isWatched && watched->second == identity) {
      return;
    }
    if (isWatched) {
      system_.removePath(name);
    }
    if (identity) {
      system_.addPath(name);
    }
    watched->second = identity;
  }

  const std::filesystem::path database_;
  const std::function<void()> changed_;
  SourceFiles last_;
  bool isAskedFor_ = false;
  QFileSystemWatcher system_;
  std::map<std::filesystem::path, std::optional<Identity>> watched_;
  QTimer settling_;
  QTimer polling_;
};

DatabaseWatcher::DatabaseWatcher(const std::filesystem::path& database,
                                 std::function<void()> changed, WatcherDelays delays)
    : signs_(std::make_unique<Signs>(std::filesystem::absolute(database), std::move(changed),
                                     delays)) {}

DatabaseWatcher::~DatabaseWatcher() = default;

void DatabaseWatcher::callAgain() {
  signs_->callAgain();
}

}  // namespace zephyl::linux_host
