#include "hosts/linux/contacts/ContactsWatcher.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <filesystem>
#include <set>
#include <system_error>
#include <utility>

#include "hosts/linux/contacts/ContactStamps.h"

namespace zephyl::linux_host {

class ContactsWatcher::Signs {
 public:
  Signs(std::vector<std::string> sources, std::function<void()> changed,
        const WatcherDelays& delays)
      : sources_(std::move(sources)), changed_(std::move(changed)), last_(stamps()) {
    settling_.setSingleShot(true);
    settling_.setInterval(delays.settling);
    polling_.setInterval(delays.polling);
    QObject::connect(&system_, &QFileSystemWatcher::fileChanged, &system_, [this] { look(); });
    QObject::connect(&system_, &QFileSystemWatcher::directoryChanged, &system_, [this] { look(); });
    QObject::connect(&polling_, &QTimer::timeout, &polling_, [this] { look(); });
    QObject::connect(&settling_, &QTimer::timeout, &settling_, [this] { call(); });
    polling_.start();
    look();
  }

 private:
  [[nodiscard]] ContactStamps stamps() const { return contactStamps(sources_, {}); }

  // Not begun anew by further signs: a file that is written all the time would never settle.
  void look() {
    watch();
    if (!settling_.isActive() && stamps() != last_) {
      settling_.start();
    }
  }

  void call() {
    ContactStamps now = stamps();
    if (now != last_) {
      last_ = std::move(now);
      changed_();
    }
  }

  // The folders tell of files that come and go, the files of what is written into them; of a source
  // that is missing the nearest folder above it. Anew each time: a file that was replaced is no
  // longer the one that is watched.
  void watch() {
    const QStringList before = system_.files() + system_.directories();
    if (!before.isEmpty()) {
      system_.removePaths(before);
    }
    std::set<std::filesystem::path> paths;
    for (const std::string& source : sources_) {
      addSource(paths, std::filesystem::absolute(source));
    }
    for (const ContactStamp& stamp : stamps()) {
      paths.insert(std::filesystem::path(stamp.path));
      paths.insert(std::filesystem::path(stamp.path).parent_path());
    }
    for (const std::filesystem::path& path : paths) {
      std::error_code error;
      if (!path.empty() && std::filesystem::exists(path, error)) {
        system_.addPath(QString::fromStdString(path.string()));
      }
    }
  }

  static void addSource(std::set<std::filesystem::path>& paths,
                        const std::filesystem::path& source) {
    std::error_code error;
    paths.insert(source);
    std::filesystem::path folder = source.parent_path();
    while (!std::filesystem::exists(folder, error) && folder.has_relative_path()) {
      folder = folder.parent_path();
    }
    paths.insert(std::move(folder));
  }

  const std::vector<std::string> sources_;
  const std::function<void()> changed_;
  ContactStamps last_;
  QFileSystemWatcher system_;
  QTimer settling_;
  QTimer polling_;
};

ContactsWatcher::ContactsWatcher(std::vector<std::string> sources, std::function<void()> changed,
                                 WatcherDelays delays)
    : signs_(std::make_unique<Signs>(std::move(sources), std::move(changed), delays)) {}

ContactsWatcher::~ContactsWatcher() = default;

}  // namespace zephyl::linux_host
