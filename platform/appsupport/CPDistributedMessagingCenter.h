// Named message centers: a synchronous request to whichever process serves the name.

#pragma once

#include <optional>
#include <string>

#include "platform/foundation/Dictionary.h"

namespace zephyl {

class CPDistributedMessagingCenter {
 public:
  virtual ~CPDistributedMessagingCenter() = default;

  // Blocks until the server answers, bounded by the host. Nothing when there is no server or no
  // reply. `userInfo` may be null. Any thread.
  [[nodiscard]] virtual std::optional<Dictionary> sendMessageAndReceiveReplyName(
      const std::string& center, const std::string& name, const Dictionary* userInfo) = 0;
};

}  // namespace zephyl
