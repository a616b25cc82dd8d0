// Notices of new messages on the desktop, by the notification service of the session bus. Without a
// bus or a service nothing is shown and nobody waits; one line in the log says so.
//
// Any thread. What a notice says is never logged.

#pragma once

#include <QThread>
#include <cstddef>
#include <functional>
#include <string>

namespace zephyl::linux_host {

// UTF-8; any text will do, nothing in it counts as markup.
struct DesktopNotice {
  // What it is about. A notice takes the place of the one before about the same, on the screen and
  // among those that wait; is never shown.
  std::string about;
  std::string title;
  std::string body;

  bool operator==(const DesktopNotice&) const = default;
};

class DesktopNotices {
 public:
  struct Options {
    // Who the user is told it comes from.
    std::string programName;
    // Its desktop file without the ending; empty when it has none.
    std::string desktopEntry;
    // Of the user's session bus; empty when there is none.
    std::string busAddress;
    // Runs on a thread of this object. May be empty.
    std::function<void(const std::string& line)> log;
  };

  // Notices wait while the service takes its time; of more than these the oldest are dropped.
  static constexpr std::size_t kMostWaiting = 50;

  // Connects to the bus only for the first notice. There must be a QCoreApplication.
  explicit DesktopNotices(Options options);

  // What still waits is dropped. Returns at once, but for a bus that accepts a connection and then
  // is silent: up to a second.
  ~DesktopNotices();
  DesktopNotices(const DesktopNotices&) = delete;
  DesktopNotices& operator=(const DesktopNotices&) = delete;

  // Returns at once.
  void show(DesktopNotice notice);

 private:
  class Sender;

  QThread thread_;
  Sender* sender_;  // ends with the thread
};

}  // namespace zephyl::linux_host
