#include "platform/uikit/UIFont.h"

#include <cmath>

#include "platform/uikit/TextLayout.h"
#include "platform/uikit/UIKitHost.h"

namespace zephyl {
namespace {

constexpr CGFloat kLargest = 1000;

CGFloat usable(CGFloat size) {
  if (!std::isfinite(size) || size <= 0) {
    return 1;
  }
  return size > kLargest ? kLargest : size;
}

}  // namespace

UIFont UIFont::systemFontOfSize(CGFloat size, Weight weight) {
  return {usable(size), weight};
}

UIFont UIFont::boldSystemFontOfSize(CGFloat size) {
  return {usable(size), Weight::kBold};
}

UIFont UIFont::fontWithSize(CGFloat size) const {
  return {usable(size), weight_};
}

UIFont::Metrics UIFont::metrics() const {
  return uikitHost().textSystem().metrics(*this);
}

}  // namespace zephyl
