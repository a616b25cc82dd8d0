#include "platform/foundation/SystemLog.h"

#include "platform/Host.h"

namespace zephyl {

void logError(const std::string& message, const char* function, int line) {
  host().systemLog().log(std::string(kErrorPrefix)
                             .append(function)
                             .append(", [Line ")
                             .append(std::to_string(line))
                             .append(kErrorPlaceEnd)
                             .append(message));
}

}  // namespace zephyl
