#include "platform/uikit/DisplayFrames.h"

#include <iterator>
#include <utility>
#include <vector>

#include "platform/Once.h"
#include "platform/uikit/CADisplayLink.h"
#include "platform/uikit/UIKitHost.h"

namespace zephyl {
namespace {

class DisplayFrames : public std::enable_shared_from_this<DisplayFrames> {
 public:
  void add(std::weak_ptr<const void> owner, FrameCallback callback) {
    waiting_.push_back({std::move(owner), std::move(callback)});
    request();
  }

 private:
  struct Entry {
    std::weak_ptr<const void> owner;
    FrameCallback callback;
  };

  void request() {
    if (requested_ || waiting_.empty()) {
      return;
    }
    requested_ = true;
    uikitHost().displayLink().requestFrame([weakSelf = weak_from_this()] {
      if (const auto self = weakSelf.lock()) {
        self->frame();
      }
    });
  }

  void frame() {
    // What is added meanwhile asks for nothing itself: the end of this call does.
    const double timestamp = uikitHost().displayLink().timestamp();
    std::vector<Entry> kept;
    for (Entry& entry : std::exchange(waiting_, {})) {
      const auto owner = entry.owner.lock();
      if (owner != nullptr && entry.callback(timestamp)) {
        kept.push_back(std::move(entry));
      }
    }
    std::move(waiting_.begin(), waiting_.end(), std::back_inserter(kept));
    waiting_ = std::move(kept);
    requested_ = false;
    request();
  }

  std::vector<Entry> waiting_;
  bool requested_ = false;
};

Once<DisplayFrames>& shared() {
  static Once<DisplayFrames> frames;
  return frames;
}

}  // namespace

void addFrameCallback(std::weak_ptr<const void> owner, FrameCallback callback) {
  const auto frames = shared().get([] { return std::make_shared<DisplayFrames>(); });
  frames->add(std::move(owner), std::move(callback));
}

}  // namespace zephyl
