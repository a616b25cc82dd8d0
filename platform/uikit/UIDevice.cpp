#include "platform/uikit/UIDevice.h"

#include "platform/Host.h"
#include "platform/foundation/Value.h"

namespace zephyl {

// Single precision on both sides: version 8.3 is at least 8.3 only so.
bool systemVersionIsAtLeast(float version) {
  return Value(host().device().systemVersion()).floatValue() >= version;
}

}  // namespace zephyl
