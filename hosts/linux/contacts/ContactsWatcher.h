// Tells that contacts were changed, by whatever means: files written, put in another's place, come
// or gone, in the sources or in the folders in them.
//
// Made, used and released on one thread with Qt's event loop, where the function is called, too.

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "hosts/linux/messages/DatabaseWatcher.h"

namespace zephyl::linux_host {

class ContactsWatcher {
 public:
  // The sources as readContacts() takes them; they need not exist. `changed` runs once for all
  // changes of a while.
  ContactsWatcher(std::vector<std::string> sources, std::function<void()> changed,
                  WatcherDelays delays = {});
  ~ContactsWatcher();
  ContactsWatcher(const ContactsWatcher&) = delete;
  ContactsWatcher& operator=(const ContactsWatcher&) = delete;

 private:
  class Signs;

  std::unique_ptr<Signs> signs_;
};

}  // namespace zephyl::linux_host
