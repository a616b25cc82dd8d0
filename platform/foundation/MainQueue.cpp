#include "platform/foundation/MainQueue.h"

#include <functional>
#include <utility>

#include "platform/Host.h"

namespace zephyl {

namespace {

class MainQueue : public SerialQueue {
 public:
  void async(std::function<void()> task) override { host().dispatch().mainAsync(std::move(task)); }
};

}  // namespace

std::shared_ptr<SerialQueue> mainQueue() {
  return std::make_shared<MainQueue>();
}

}  // namespace zephyl
