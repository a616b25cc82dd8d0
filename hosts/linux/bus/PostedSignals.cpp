#include "hosts/linux/bus/PostedSignals.h"

namespace zephyl::linux_host {

void PostedSignals::posted(const QDBusMessage& message) {
  // What this process posts comes back to it.
  if (message.service() != ownName_ && message.signature() == "s") {
    heard_(message.arguments().at(0).toString().toStdString());
  }
}

}  // namespace zephyl::linux_host
