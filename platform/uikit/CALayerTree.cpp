// The layers above a layer.

#include <algorithm>
#include <iterator>

#include "platform/uikit/CALayer.h"
#include "platform/uikit/LayerAnimations.h"

namespace zephyl {

void CALayer::addSublayer(const std::shared_ptr<CALayer>& layer) {
  insertSublayer(layer, sublayers_.size());
}

void CALayer::insertSublayer(const std::shared_ptr<CALayer>& layer, std::size_t index) {
  for (const CALayer* below = this; below != nullptr; below = below->superlayer_) {
    if (below == layer.get()) {
      return;
    }
  }
  if (layer == nullptr) {
    return;
  }
  // Held apart: what was handed over may be an element of the list that it leaves.
  const std::shared_ptr<CALayer> added = layer->shared_from_this();
  if (added->superlayer_ == this) {
    const auto here = std::find(sublayers_.begin(), sublayers_.end(), added);
    const auto place = static_cast<std::size_t>(std::distance(sublayers_.begin(), here));
    const std::size_t wanted = std::min(index, sublayers_.size() - 1);
    if (place == wanted) {
      return;
    }
    sublayers_.erase(here);
    index = wanted;
  } else {
    added->removeFromSuperlayer();
  }
  const std::size_t place = std::min(index, sublayers_.size());
  sublayers_.insert(sublayers_.begin() + static_cast<std::ptrdiff_t>(place), added);
  added->superlayer_ = this;
  added->invalidate();
}

void CALayer::removeFromSuperlayer() {
  if (superlayer_ == nullptr) {
    return;
  }
  invalidate();
  std::vector<std::shared_ptr<CALayer>>& siblings = superlayer_->sublayers_;
  const auto here = std::find_if(siblings.begin(), siblings.end(),
                                 [this](const auto& layer) { return layer.get() == this; });
  const std::shared_ptr<CALayer> keep = *here;
  siblings.erase(here);
  superlayer_ = nullptr;
  endAnimationsOfTree();
}

void CALayer::endAnimationsOfTree() {
  std::vector<CALayer*> waiting{this};
  while (!waiting.empty()) {
    CALayer* const layer = waiting.back();
    waiting.pop_back();
    layer->animations_.reset();
    for (const auto& sublayer : layer->sublayers_) {
      waiting.push_back(sublayer.get());
    }
  }
}

}  // namespace zephyl
