#include "apps/springboard/MessageAnnouncements.h"

#include <utility>

#include "platform/Host.h"
#include "platform/foundation/SystemLog.h"

namespace zephyl::app {

MessageAnnouncements::MessageAnnouncements(Options options)
    : database_(std::move(options.database)),
      delays_(options.delays),
      news_(database_),
      announcer_(std::move(options.readConversations), std::move(options.show)) {}

void MessageAnnouncements::start() {
  // First the watcher, so that nothing falls between.
  watcher_.emplace(
      database_, [this] { look(); }, delays_);
  look();
}

void MessageAnnouncements::look() {
  const auto reading = news_.read();
  if (!reading.ok()) {
    const std::string error = reading.error().file + ": " + reading.error().reason;
    if (std::exchange(lastError_, error) != error) {
      host().systemLog().log("no notices of new messages: " + error);
    }
    return;
  }
  if (reading.value().sourceChanged) {
    watcher_->callAgain();
    return;
  }
  lastError_.clear();
  announcer_.announce(reading.value().messages);
}

}  // namespace zephyl::app
