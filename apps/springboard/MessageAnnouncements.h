// Watches the Messages database and tells the user of new messages, for as long as it lives:
//
//   linux_host::DesktopNotices notices({.programName = "Messages",
//                                       .desktopEntry = ...,
//                                       .busAddress = sessionBusAddress().value_or(""),
//                                       .log = ...});
//   MessageAnnouncements announcements({.database = places.messages.string(),
//                                       .readConversations = [&] { userData.readConversations(); },
//                                       .show = [&](auto notice) { notices.show(notice); }});
//   announcements.start();
//
// On the main thread, with Qt's event loop and an installed host; must go before the host does.

#pragma once

#include <functional>
#include <optional>
#include <string>

#include "apps/springboard/Announcer.h"
#include "hosts/linux/messages/DatabaseWatcher.h"
#include "hosts/linux/messages/NewMessages.h"

namespace zephyl::app {

class MessageAnnouncements {
 public:
  struct Options {
    // Need not exist yet.
    std::string database;
    // See Announcer.
    std::function<void()> readConversations;
    Announcer::Show show;
    linux_host::WatcherDelays delays = {};
  };

  explicit MessageAnnouncements(Options options);

  // Nothing that is there by now is ever told of. When the database cannot be read, a line in the
  // system log says why, once, and it is tried again with each change.
  void start();

 private:
  void look();

  const std::string database_;
  const linux_host::WatcherDelays delays_;
  linux_host::NewMessages news_;
  Announcer announcer_;
  std::optional<linux_host::DatabaseWatcher> watcher_;
  std::string lastError_;
};

}  // namespace zephyl::app
