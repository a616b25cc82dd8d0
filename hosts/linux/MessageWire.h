// The form in which dictionaries go from process to process: binary property lists of a limited
// size. What cannot go, or is none when it arrives, leaves a line in the system log. Any thread.

#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/foundation/Dictionary.h"

#include "hosts/linux/MessageServer.h"

namespace zephyl {
class SystemLog;
}  // namespace zephyl

namespace zephyl::linux_host {

class MessageWire {
 public:
  // `log` must outlive this.
  explicit MessageWire(SystemLog& log, std::size_t maximumBytes = kMaximumMessageBytes)
      : log_(log), maximumBytes_(maximumBytes) {}

  // Nothing when it holds what binary property lists cannot, or is too large. `what` begins the
  // line in the log.
  [[nodiscard]] std::optional<Data> encoded(const Dictionary& dictionary,
                                            const std::string& what) const;

  // Nothing when the bytes are too many, no property list or no dictionary.
  [[nodiscard]] std::optional<Dictionary> decoded(const Data& bytes, const std::string& what) const;

 private:
  SystemLog& log_;
  const std::size_t maximumBytes_;
};

}  // namespace zephyl::linux_host
